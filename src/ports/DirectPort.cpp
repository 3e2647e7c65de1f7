// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/DirectPort.h"

#include <cerrno>
#include <system_error>

#if defined(__x86_64__) || defined(__i386__)
#include <sys/io.h>
#endif

#include "link/BoardLines.h"
#include "ports/OpenPort.h"
#include "ports/ParportDevices.h"

namespace vx3260 {
namespace {

std::int32_t ChosenAddress(std::optional<std::int32_t> address, const std::string& path) {
    if (address) {
        return *address;
    }
    const auto device = path.empty() ? FirstParportDevice() : ParportDeviceAt(path);
    return device ? device->baseAddress : 0;
}

#if defined(__x86_64__) || defined(__i386__)

int RequestAccess(unsigned long base) {
    return ioperm(base, BoardLines::RegisterCount, 1);
}

void WriteIo(std::int32_t address, std::uint8_t value) {
    outb(value, static_cast<unsigned short>(address));
}

std::uint8_t ReadIo(std::int32_t address) {
    return inb(static_cast<unsigned short>(address));
}

#else

int RequestAccess(unsigned long /*base*/) {
    errno = ENOSYS;
    return -1;
}

void WriteIo(std::int32_t /*address*/, std::uint8_t /*value*/) {}

std::uint8_t ReadIo(std::int32_t /*address*/) {
    return BoardLines::Undriven;
}

#endif

}  // namespace

DirectPort::DirectPort(std::optional<std::int32_t> address, const std::string& path,
                       std::chrono::nanoseconds pollTime)
    : DevicePort(ChosenAddress(address, path), pollTime) {
    if (BaseAddress() == 0) {
        failure_ = NoDeviceDetail(path) + "\nor name the port's address with --port-address.";
    }
}

bool DirectPort::Claim() {
    if (BaseAddress() == 0) {
        return false;
    }
    if (BaseAddress() > MaxDirectAddress) {
        failure_ =
            "Direct access reaches addresses up to 0x7FFF. Leave out --port-access=direct: "
            "the driver reaches every port.";
        return false;
    }
    if (RequestAccess(static_cast<unsigned long>(BaseAddress())) != 0) {
        failure_ = "Direct access to the port's registers is not possible: " +
                   std::generic_category().message(errno) +
                   ". Leave out --port-access=direct: the driver serves every user of the group "
                   "that owns the device.";
        return false;
    }
    return true;
}

void DirectPort::WriteRegister(std::int16_t offset, std::uint8_t value) {
    WriteIo(BaseAddress() + offset, value);
}

std::uint8_t DirectPort::ReadRegister(std::int16_t offset) {
    return ReadIo(BaseAddress() + offset);
}

}  // namespace vx3260
