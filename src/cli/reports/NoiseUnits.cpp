// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/NoiseUnits.h"

#include "cli/reports/ConditionValues.h"
#include "cli/reports/ConverterName.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr int digits = 4;

}  // namespace

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

std::string FigureText(double value) {
    return SignificantText(value, digits);
}

std::string HertzText(double hertz) {
    return FigureText(hertz) + " Hz";
}

std::string LsbText(double lsb) {
    return FigureText(lsb) + " LSB";
}

std::string NoiseVoltsText(double volts) {
    return VoltsText(volts, digits);
}

std::string VoltsPerRootHertzText(double density) {
    return NoiseVoltsText(density) + "/√Hz";
}

}  // namespace vx3260
