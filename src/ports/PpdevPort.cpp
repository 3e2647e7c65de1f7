// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/PpdevPort.h"

#include <fcntl.h>
#include <sys/ioctl.h>
// The ioctls' numbers are made by the header above.
#include <linux/ppdev.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "link/BoardLines.h"
#include "ports/Ioctl.h"

namespace vx3260 {
namespace {

constexpr std::uint8_t inputsBit = 0x20;
constexpr std::uint8_t driversBits = 0x0F;
constexpr std::uint8_t noAnswer = BoardLines::Undriven;

std::optional<ParportDevice> ChosenDevice(const std::string& path) {
    if (!path.empty()) {
        // A device that cannot be examined may exist: opening it shows.
        std::error_code error;
        const bool missing = !std::filesystem::exists(path, error) && !error;
        return missing ? std::nullopt : std::optional(ParportDeviceAt(path));
    }
    return FirstParportDevice();
}

}  // namespace

PpdevPort::PpdevPort(const std::string& path, std::chrono::nanoseconds pollTime)
    : PpdevPort(ChosenDevice(path), pollTime) {
    if (path_.empty()) {
        path_ = path;
        failure_ = OpenFailureDetail(path, ENOENT);
    }
}

PpdevPort::PpdevPort(const std::optional<ParportDevice>& device, std::chrono::nanoseconds pollTime)
    : DevicePort(device ? ReportedAddress(*device) : 0, pollTime),
      path_(device ? device->path : std::string()) {}

PpdevPort::~PpdevPort() {
    if (device_ != -1) {
        close(device_);
    }
}

std::int32_t PpdevPort::GetParallelPortCount() {
    return static_cast<std::int32_t>(FindParportDevices().size());
}

bool PpdevPort::Claim() {
    if (BaseAddress() == 0 || !Open()) {
        return false;
    }
    if (Ioctl(device_, PPEXCL) == -1 || Ioctl(device_, PPCLAIM) == -1) {
        failure_ = ClaimFailureDetail(path_, errno);
        close(device_);
        device_ = -1;
        return false;
    }
    return true;
}

bool PpdevPort::Open() {
    if (device_ == -1) {
        device_ = open(path_.c_str(), O_RDWR | O_CLOEXEC);
    }
    if (device_ == -1) {
        failure_ = OpenFailureDetail(path_, errno);
        return false;
    }
    return true;
}

void PpdevPort::WriteRegister(std::int16_t offset, std::uint8_t value) {
    if (failed_) {
        return;
    }
    if (offset == BoardLines::DataRegister) {
        Send(PPWDATA, value);
    } else if (offset == BoardLines::ControlRegister) {
        WriteControl(value);
    }
}

/// PPWCONTROL would turn the lines to inputs for bit 5 set, but not back for bit 5 clear.
void PpdevPort::WriteControl(std::uint8_t value) {
    inputs_ = value & inputsBit;
    int direction = inputs_ != 0 ? 1 : 0;
    if (Ioctl(device_, PPDATADIR, &direction) == -1) {
        NoteFailure();
        return;
    }
    Send(PPWCONTROL, value & driversBits);
}

std::uint8_t PpdevPort::ReadRegister(std::int16_t offset) {
    if (failed_) {
        return noAnswer;
    }
    switch (offset) {
        case BoardLines::DataRegister:
            return Receive(PPRDATA);
        case BoardLines::StatusRegister:
            return Receive(PPRSTATUS);
        default:
            return static_cast<std::uint8_t>((Receive(PPRCONTROL) & driversBits) | inputs_);
    }
}

void PpdevPort::Send(unsigned long request, std::uint8_t value) {
    if (Ioctl(device_, request, &value) == -1) {
        NoteFailure();
    }
}

std::uint8_t PpdevPort::Receive(unsigned long request) {
    std::uint8_t value = noAnswer;
    if (Ioctl(device_, request, &value) == -1) {
        NoteFailure();
        return noAnswer;
    }
    return value;
}

/// The operations report no errors: reads give open lines from then on, and a wait for data-ready
/// times out.
void PpdevPort::NoteFailure() {
    failed_ = true;
    failure_ = path_ + " stopped working: " + std::generic_category().message(errno) +
               ". Check the port's card and start the program again.";
}

}  // namespace vx3260
