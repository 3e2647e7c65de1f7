// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

#include "link/RegisterReading.h"

namespace vx3260 {

inline constexpr std::int32_t MinFilterWord = 13;
inline constexpr std::int32_t MaxFilterWord = 255;

/// Update rate in hertz of a filter word, 1 to 255: 32768 / (word x 24), of the chip's 32768 Hz
/// clock. Throws OverflowError for 0.
double UpdateRateOf(std::int32_t filterWord);

/// The filter word for an update rate in whole hertz, 1 or more: the largest whose rate is not
/// below it, limited to MinFilterWord and MaxFilterWord.
std::int32_t FilterWordFor(std::int16_t hertz);

/// The update rate in hertz that the filter register sets; empty for a word of 0, and for other
/// registers.
std::optional<double> UpdateRate(const RegisterReading& reading);

}  // namespace vx3260
