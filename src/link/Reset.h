// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"

namespace vx3260 {

/// Pulses the chip's reset line. The pulse lasts one port write.
void HardwareReset(ParallelPort& parallelPort, std::int16_t port);

/// One bits in a row that reset the chip's interface.
inline constexpr int OnesThatReset = 32;

/// Clocks OnesThatReset one bits into the chip, which brings its interface back in step, then
/// clears both test registers. The reset line is pulsed low with each of the bits.
void SoftwareReset(ParallelPort& parallelPort, std::int16_t port);

}  // namespace vx3260
