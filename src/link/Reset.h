// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"

namespace vx3260 {

/// Pulses the chip's reset line: two writes to the data register, as long as they take.
void HardwareReset(ParallelPort& parallelPort, std::int16_t port);

/// Clocks 32 one bits into the chip, which brings its interface back in step, then clears both
/// test registers. The reset line is pulsed low with each of the 32 bits.
void SoftwareReset(ParallelPort& parallelPort, std::int16_t port);

}  // namespace vx3260
