// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/ConditionValues.h"

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
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
