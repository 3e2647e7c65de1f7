// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace vx3260 {

/// What the temperature sensor's voltage stands for, in degrees Celsius. `slope` is in millivolts
/// per kelvin.
inline double CelsiusOf(double volts, double slope) {
    constexpr double millivoltsPerVolt = 1e3;
    constexpr double kelvinAtZeroCelsius = 273.15;
    return volts * millivoltsPerVolt / slope - kelvinAtZeroCelsius;
}

}  // namespace vx3260
