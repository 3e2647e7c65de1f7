// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/SimulatedPort.h"

#include "app/PrinterPorts.h"
#include "link/BoardLines.h"

namespace vx3260 {
namespace {

constexpr std::int16_t baseAddress = DefaultPortAddress;

bool IsOurs(std::int16_t address) {
    return address >= baseAddress && address < baseAddress + BoardLines::RegisterCount;
}

unsigned OffsetOf(std::int16_t address) {
    return static_cast<unsigned>(address - baseAddress);
}

}  // namespace

std::int32_t SimulatedPort::ClaimParallelPort(std::int32_t portNumber, std::int32_t /*flag*/) {
    return portNumber == 1 ? 1 : 0;
}

std::int32_t SimulatedPort::GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) {
    if (portNumber != 1) {
        return 0;
    }
    info.address = baseAddress;
    return 1;
}

void SimulatedPort::OutByte(std::int16_t address, std::int16_t value) {
    if (IsOurs(address)) {
        board_.Write(OffsetOf(address), static_cast<std::uint8_t>(value));
    }
}

std::int16_t SimulatedPort::InByte(std::int16_t address) {
    if (!IsOurs(address)) {
        return BoardLines::Undriven;
    }
    return board_.Read(OffsetOf(address));
}

}  // namespace vx3260
