// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "analysis/ConversionConditions.h"

namespace vx3260 {

/// Conversion conditions for JSON and CSV: of each single-precision voltage the decimal number that
/// was entered for it, 3.3 and not 3.2999999.
struct ConditionValues {
    double referenceVoltage;    ///< volts
    double inputRange;          ///< volts
    std::string_view polarity;  ///< "unipolar" or "bipolar"
    double lsbVolts;            ///< size of one code at that reference voltage
    double zeroCode;            ///< code of zero volts

    /// The input voltage that a code stands for. It may be the mean of several codes.
    double VoltsOf(double code) const { return (code - zeroCode) * lsbVolts; }
};

ConditionValues ConditionValuesOf(const ConversionConditions& conditions);

}  // namespace vx3260
