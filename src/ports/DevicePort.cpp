// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/DevicePort.h"

namespace vx3260 {
namespace {

constexpr std::int32_t onlyPort = 1;

}  // namespace

std::int32_t DevicePort::ClaimParallelPort(std::int32_t portNumber, std::int32_t /*flag*/) {
    if (portNumber != onlyPort) {
        return 0;
    }
    claimed_ = claimed_ || Claim();
    return claimed_ ? 1 : 0;
}

std::int32_t DevicePort::GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) {
    if (portNumber != onlyPort || baseAddress_ == 0) {
        return 0;
    }
    info.address = baseAddress_;
    return 1;
}

void DevicePort::OutByte(std::int16_t address, std::int16_t value) {
    if (Reaches(address)) {
        WriteRegister(static_cast<std::int16_t>(address - baseAddress_),
                      static_cast<std::uint8_t>(value));
    }
}

std::int16_t DevicePort::InByte(std::int16_t address) {
    if (!Reaches(address)) {
        return BoardLines::Undriven;
    }
    const auto offset = static_cast<std::int16_t>(address - baseAddress_);
    return pace_.Paced([this, offset] { return ReadRegister(offset); });
}

}  // namespace vx3260
