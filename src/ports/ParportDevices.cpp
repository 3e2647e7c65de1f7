// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/ParportDevices.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "app/PrinterPorts.h"
#include "ports/DeviceFiles.h"

namespace vx3260 {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view devicePrefix = "/dev/parport";
constexpr std::string_view kernelFolder = "/proc/sys/dev/parport/";

/// "3" of "/dev/parport3"; empty for any other path.
std::string NumberOf(std::string_view path) {
    if (!path.starts_with(devicePrefix)) {
        return {};
    }
    const std::string_view digits = path.substr(devicePrefix.size());
    const bool number = !digits.empty() && digits.find_first_not_of("0123456789") == digits.npos;
    return number ? std::string(digits) : std::string();
}

std::string KernelFolderOf(const std::string& path) {
    return std::string(kernelFolder) + "parport" + NumberOf(path) + "/";
}

/// Two numbers, of which the second is the address of the port's extended registers.
std::int32_t BaseAddressOf(const std::string& path) {
    std::int32_t address = 0;
    std::ifstream(KernelFolderOf(path) + "base-addr") >> address;
    return address;
}

std::string ReasonOf(int error) {
    return std::generic_category().message(error);
}

std::string NameOfProcess(const std::string& id) {
    std::string name;
    std::getline(std::ifstream("/proc/" + id + "/comm"), name);
    return name;
}

bool HasOpen(const std::string& process, const std::string& path) {
    const std::string folder = "/proc/" + process + "/fd/";
    const std::vector<std::string> files = NamesIn(folder);
    return std::any_of(files.begin(), files.end(), [&](const std::string& file) {
        std::error_code error;
        return fs::read_symlink(folder + file, error) == path;
    });
}

/// "process 1234 (name)" for another process that has the device open, as far as this user may
/// see; else empty.
std::string HoldingProcess(const std::string& path) {
    const std::string self = std::to_string(getpid());
    for (const std::string& id : NamesIn("/proc")) {
        const bool process = id.find_first_not_of("0123456789") == std::string::npos;
        if (process && id != self && HasOpen(id, path)) {
            return "process " + id + " (" + NameOfProcess(id) + ")";
        }
    }
    return {};
}

/// The name of a kernel driver that is attached to the port, such as "lp"; else empty. ppdev's own
/// entries belong to the processes that have the device open.
std::string HoldingDriver(const std::string& path) {
    const std::vector<std::string> names = NamesIn(KernelFolderOf(path) + "devices");
    for (const std::string& name : names) {
        if (name != "active" && !name.starts_with("ppdev")) {
            return name;
        }
    }
    std::error_code error;
    return names.empty() && fs::exists("/sys/module/lp", error) ? "lp" : "";
}

}  // namespace

std::vector<ParportDevice> FindParportDevices() {
    std::vector<ParportDevice> devices;
    for (const std::string& name : NamesIn("/dev")) {
        const std::string path = "/dev/" + name;
        if (!NumberOf(path).empty()) {
            devices.push_back(ParportDeviceAt(path));
        }
    }
    std::sort(devices.begin(), devices.end(), [](const ParportDevice& a, const ParportDevice& b) {
        return std::pair(a.path.size(), a.path) < std::pair(b.path.size(), b.path);
    });
    return devices;
}

std::optional<ParportDevice> FirstParportDevice() {
    const std::vector<ParportDevice> devices = FindParportDevices();
    return devices.empty() ? std::nullopt : std::optional(devices.front());
}

ParportDevice ParportDeviceAt(const std::string& path) {
    return {path, BaseAddressOf(path)};
}

std::int32_t ReportedAddress(const ParportDevice& device) {
    const bool known =
        std::any_of(PrinterPorts.begin(), PrinterPorts.end(),
                    [&device](const PrinterPort& p) { return p.address == device.baseAddress; });
    return known ? device.baseAddress : DefaultPortAddress;
}

std::string NoDeviceDetail(const std::string& path) {
    return "There is no " + (path.empty() ? "/dev/parport0" : path) +
           ". If this PC has a printer port, load its modules with\n"
           "    sudo modprobe -a parport_pc ppdev";
}

std::string OpenFailureDetail(const std::string& path, int error) {
    switch (error) {
        case EACCES:
        case EPERM:
            return PermissionDetail(path,
                                    "Have the administrator give the device to a group (usually "
                                    "\"lp\") and you to that group.");
        case ENOENT:
        case ENXIO:
        case ENODEV:
            return FindParportDevices().empty()
                       ? NoDeviceDetail(path)
                       : "There is no " + path +
                             ". The command \"vx3260-cli ports\" lists those "
                             "there are.";
        default:
            return path + " cannot be opened: " + ReasonOf(error);
    }
}

std::string ClaimFailureDetail(const std::string& path, int error) {
    if (error == ENOTTY || error == EINVAL) {
        return path +
               " is not a printer port. The command \"vx3260-cli ports\" lists those there are.";
    }
    const std::string taken = path + " cannot be claimed: " + ReasonOf(error) + ".";
    if (const std::string process = HoldingProcess(path); !process.empty()) {
        return taken + " It is in use by " + process + ": end that program first.";
    }
    if (const std::string driver = HoldingDriver(path); !driver.empty()) {
        return taken + " The driver \"" + driver +
               "\" holds the port: unload it with\n"
               "    sudo modprobe -r " +
               driver;
    }
    return taken + " Another program or driver holds the port: end it first.";
}

}  // namespace vx3260
