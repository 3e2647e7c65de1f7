// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/FtdiDevices.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "numbers/WholeNumber.h"
#include "ports/DeviceFiles.h"

namespace vx3260 {
namespace {

constexpr const char* vendor = "0403";
/// Of the chips that have synchronous bit-bang mode, as they leave the factory.
constexpr std::array<std::string_view, 5> products{"6001", "6010", "6011", "6014", "6015"};
constexpr const char* devicesOfUdev = "SUBSYSTEM==\"usb\", ATTR{idVendor}==\"0403\"";

std::string LineOf(const std::string& file) {
    std::string line;
    std::getline(std::ifstream(file), line);
    return line;
}

std::uint8_t NumberIn(const std::string& file) {
    return static_cast<std::uint8_t>(DecimalNumber(LineOf(file)).value_or(0));
}

std::string ThreeDigits(std::uint8_t number) {
    const std::string digits = std::to_string(number);
    return std::string(3 - digits.size(), '0') + digits;
}

FtdiDevice DeviceIn(const std::string& folder) {
    FtdiDevice device{LineOf(folder + "/serial"), LineOf(folder + "/product"),
                      NumberIn(folder + "/busnum"), NumberIn(folder + "/devnum")};
    device.path = "/dev/bus/usb/" + ThreeDigits(device.bus) + "/" + ThreeDigits(device.address);
    return device;
}

std::string ListOf(const std::vector<FtdiDevice>& devices) {
    std::string list;
    for (const FtdiDevice& device : devices) {
        list += list.empty() ? "" : ", ";
        list += device.serial.empty() ? "no serial number" : device.serial;
        list.append(" (" + device.product + ", " + device.path + ")");
    }
    return list;
}

}  // namespace

std::vector<FtdiDevice> FindFtdiDevices(const std::string& folder) {
    std::vector<FtdiDevice> devices;
    for (const std::string& name : NamesIn(folder)) {
        const std::string place = (std::filesystem::path(folder) / name).string();
        const std::string product = LineOf(place + "/idProduct");
        if (LineOf(place + "/idVendor") == vendor && std::ranges::count(products, product) != 0) {
            devices.push_back(DeviceIn(place));
        }
    }
    std::ranges::sort(devices, {}, &FtdiDevice::path);
    return devices;
}

std::string FtdiChoiceText(const FtdiDevice& device, const std::vector<FtdiDevice>& devices) {
    const bool chooses = !device.serial.empty() && device.serial.find(',') == std::string::npos &&
                         std::ranges::count(devices, device.serial, &FtdiDevice::serial) == 1;
    return chooses ? "ftdi:serial=" + device.serial : "ftdi:device=" + device.path;
}

std::optional<FtdiDevice> ChooseFtdiDevice(const std::vector<FtdiDevice>& devices,
                                           const std::string& choice, std::string& failure) {
    if (devices.empty()) {
        failure = "No FTDI device is connected.";
        return std::nullopt;
    }
    std::vector<FtdiDevice> chosen;
    std::ranges::copy_if(devices, std::back_inserter(chosen), [&choice](const FtdiDevice& device) {
        return choice.empty() || device.serial == choice || device.path == choice;
    });
    if (chosen.empty()) {
        failure = std::string("There is no FTDI device ") +
                  (choice.starts_with('/') ? "at " : "with the serial number ") + choice +
                  "; connected: " + ListOf(devices) + ".";
        return std::nullopt;
    }
    if (chosen.size() > 1) {
        failure = "There are several FTDI devices: " + ListOf(chosen) + ". Choose one: --port " +
                  FtdiChoiceText(chosen.front(), devices);
        return std::nullopt;
    }
    return chosen.front();
}

std::string FtdiOpenFailureDetail(const FtdiDevice& device, const std::string& reason) {
    if (access(device.path.c_str(), F_OK) == 0 && access(device.path.c_str(), R_OK | W_OK) != 0) {
        return PermissionDetail(device.path, AccessRuleDetail("ftdi", devicesOfUdev));
    }
    return "The FTDI device " + device.path + " cannot be used: " + reason +
           ". Look whether another program has it open.";
}

}  // namespace vx3260
