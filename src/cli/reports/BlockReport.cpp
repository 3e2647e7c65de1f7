// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/BlockReport.h"

#include <QJsonArray>

#include "cli/reports/ConditionValues.h"
#include "cli/reports/JsonText.h"
#include "cli/reports/ReportedConditions.h"
#include "files/ConditionsFile.h"
#include "files/JsonFields.h"
#include "numbers/NumberText.h"

namespace vx3260 {

std::string BlockCsv(const ReadBlockReport& block) {
    constexpr int timeDecimals = 6;
    const ConditionValues conditions = ConditionValuesOf(block.conversion);
    std::string csv = "index,time_s,code,volts\n";
    for (std::size_t i = 0; i < block.codes.size(); ++i) {
        csv += std::to_string(i + 1) + ',' + FixedText(block.conditions.seconds[i], timeDecimals) +
               ',' + std::to_string(block.codes[i]) + ',' +
               ShortestText(conditions.VoltsOf(block.codes[i])) + '\n';
    }
    return csv;
}

std::string BlockJson(const ReadBlockReport& block) {
    const ConditionValues conditions = ConditionValuesOf(block.conversion);
    QJsonArray values;
    for (std::size_t i = 0; i < block.codes.size(); ++i) {
        values.append(QJsonObject{{"timeSeconds", block.conditions.seconds[i]},
                                  {"code", block.codes[i]},
                                  {"volts", conditions.VoltsOf(block.codes[i])}});
    }
    return JsonText({
        {"board", BoardValue(block.board)},
        {"converter", ConverterValue(block.conditions.converter)},
        {"referenceVoltage", conditions.referenceVoltage},
        {"range", conditions.inputRange},
        {"polarity", QString::fromUtf8(conditions.polarity)},
        {"count", static_cast<qint64>(block.codes.size())},
        {"end", OutcomeName(block.conditions.outcome)},
        {"conditions", ConditionsObject(block.conditions)},
        {"warnings", WarningsValue(block.warnings)},
        {"values", values},
    });
}

}  // namespace vx3260
