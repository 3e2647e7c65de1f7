// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdint>

#include "ports/SimulatedPort.h"

/// A stand-in for the port library, with the simulated board on its only port.

namespace {

vx3260::SimulatedPort& Port() {
    static vx3260::SimulatedPort port;
    return port;
}

}  // namespace

#define PARLLIO_OPERATION extern "C" __declspec(dllexport)

PARLLIO_OPERATION std::int32_t __stdcall GetParallelPortCount() {
    return Port().GetParallelPortCount();
}

PARLLIO_OPERATION std::int32_t __stdcall ClaimParallelPort(std::int32_t portNumber,
                                                           std::int32_t flag) {
    return Port().ClaimParallelPort(portNumber, flag);
}

PARLLIO_OPERATION void __stdcall OutByte(std::int16_t address, std::int16_t value) {
    Port().OutByte(address, value);
}

#ifndef PARLLIO_INCOMPLETE

/// Refuses a record of another size, as the real one may.
PARLLIO_OPERATION std::int32_t __stdcall GetParallelPortInfo(std::int32_t portNumber,
                                                             vx3260::ParallelPortInfo* info) {
    return info->size == sizeof *info ? Port().GetParallelPortInfo(portNumber, *info) : 0;
}

PARLLIO_OPERATION std::int16_t __stdcall InByte(std::int16_t address) {
    constexpr std::int16_t unusedBits = 0x5500;  // only the low 8 bits mean anything
    return static_cast<std::int16_t>(unusedBits | Port().InByte(address));
}

#endif
