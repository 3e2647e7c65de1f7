// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "link/ParallelPort.h"
#include "link/RegisterReading.h"

namespace vx3260 {

/// What all registers that can be written hold, in the order of their addresses.
using Configuration = std::vector<RegisterReading>;

/// Reads them from the chip. No missing board is detected.
Configuration ReadConfiguration(ParallelPort& parallelPort, const std::int16_t& portAddress);

/// The same as a snapshot.
RegisterSnapshot SnapshotOf(const Configuration& configuration);

/// A register that does not hold what was written to it.
struct RegisterMismatch {
    RegisterReading wanted;
    std::int32_t readBack;
};

/// Puts the chip into power-down, writes the registers that need it, then the others, the mode
/// register last, and reads them all back at the end. A mode that the chip leaves by itself is
/// replaced by the idle mode. The levels of input pins are not compared. Returns what differs.
std::vector<RegisterMismatch> RestoreConfiguration(ParallelPort& parallelPort,
                                                   const std::int16_t& portAddress,
                                                   const Configuration& configuration);

/// The bits of a register's contents that come back as they were written: not the levels of pins
/// that are inputs.
std::int32_t ComparableBits(const RegisterMap::RegisterDescription& description,
                            std::int32_t written);

}  // namespace vx3260
