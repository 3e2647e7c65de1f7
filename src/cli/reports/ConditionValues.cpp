// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/ConditionValues.h"

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

/// The shortest decimal number of the same single-precision value: 2.56, not 2.55999994.
double AsEntered(float value) {
    return TextToDouble(ShortestText(value));
}

}  // namespace

ConditionValues ConditionValuesOf(const ConversionConditions& conditions) {
    const double reference = AsEntered(conditions.referenceVoltage);
    return {
        .referenceVoltage = reference,
        .inputRange = AsEntered(conditions.inputRange),
        .polarity = conditions.polarity == Polarity::Unipolar ? "unipolar" : "bipolar",
        .lsbVolts = conditions.lsbVolts / conditions.referenceVoltage * reference,
        .zeroCode = conditions.zeroCode,
    };
}

}  // namespace vx3260
