// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/ReportedConditions.h"

#include "cli/reports/ConditionValues.h"
#include "cli/reports/ConverterName.h"

namespace vx3260 {

CodeScale ReportedScale(const ConversionConditions& conditions) {
    return {ConditionValuesOf(conditions).lsbVolts, CodeScaleOf(conditions).lsb};
}

QJsonObject ConditionsObject(const ConversionConditions& conditions) {
    const ConditionValues values = ConditionValuesOf(conditions);
    return {
        {"converter", QString::fromStdString(CommandLineName(conditions.converter))},
        {"referenceVoltage", values.referenceVoltage},
        {"inputRange", values.inputRange},
        {"polarity", QString::fromUtf8(values.polarity)},
        {"codeVolts", values.lsbVolts},
        {"codesPerLsb", conditions.codeStep},
    };
}

}  // namespace vx3260
