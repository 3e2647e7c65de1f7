// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace vx3260 {

/// How many readings in a second are accepted, Hz: wide around what converters do, so that no
/// figure overflows.
inline constexpr double MinRate = 1e-6;
inline constexpr double MaxRate = 1e9;

constexpr bool IsRate(double hertz) {
    return hertz >= MinRate && hertz <= MaxRate;
}

}  // namespace vx3260
