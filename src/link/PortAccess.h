// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"

namespace vx3260 {

/// Writes the low byte of `value` to an I/O address.
inline void PortOut(ParallelPort& parallelPort, std::int16_t address, std::int16_t value) {
    parallelPort.OutByte(address, static_cast<std::int16_t>(value & 0xFF));
}

/// Reads one byte, 0 to 255, from an I/O address.
inline std::int16_t PortIn(ParallelPort& parallelPort, std::int16_t address) {
    return static_cast<std::int16_t>(parallelPort.InByte(address) & 0xFF);
}

}  // namespace vx3260
