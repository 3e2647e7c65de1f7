// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/ReportedConditions.h"

#include "cli/reports/ConditionValues.h"
#include "files/ConditionsFile.h"
#include "files/JsonFields.h"

namespace vx3260 {

CodeScale ReportedScale(const ConversionConditions& conditions) {
    return {ConditionValuesOf(conditions).lsbVolts, CodeScaleOf(conditions).lsb};
}

QJsonObject ConditionsObject(const ConversionConditions& conditions) {
    const ConditionValues values = ConditionValuesOf(conditions);
    return {
        {"converter", ConverterValue(conditions.converter)},
        {"referenceVoltage", values.referenceVoltage},
        {"inputRange", values.inputRange},
        {"polarity", QString::fromUtf8(values.polarity)},
        {"codeVolts", values.lsbVolts},
        {"codesPerLsb", conditions.codeStep},
    };
}

QJsonValue ReadingValue(const std::optional<BlockConditions>& reading) {
    return reading ? QJsonValue(ConditionsObject(*reading)) : QJsonValue();
}

QJsonArray WarningsValue(std::span<const BlockWarning> warnings) {
    QJsonArray list;
    for (const BlockWarning& warning : warnings) {
        QJsonObject object{{"kind", QString::fromUtf8(NameOf(warning.kind))},
                           {"text", QString::fromStdString(warning.text)}};
        if (warning.count) {
            object["count"] = static_cast<qint64>(*warning.count);
        }
        list.append(object);
    }
    return list;
}

}  // namespace vx3260
