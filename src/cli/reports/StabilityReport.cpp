// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/StabilityReport.h"

#include <QJsonArray>
#include <algorithm>

#include "analysis/PlotCsv.h"
#include "analysis/UnitTexts.h"
#include "cli/reports/JsonText.h"
#include "cli/reports/ReportedConditions.h"
#include "numbers/Columns.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

double SecondsOf(const FileStability& analysed, const AllanPoint& point) {
    return static_cast<double>(point.factor) / analysed.rate;
}

const AllanPoint& MinimumOf(const FileStability& analysed) {
    return *std::min_element(
        analysed.points.begin(), analysed.points.end(),
        [](const AllanPoint& a, const AllanPoint& b) { return a.deviation < b.deviation; });
}

std::string MinimumText(const FileStability& analysed, const CodeScale& scale) {
    if (analysed.points.empty()) {
        return NotDefined;
    }
    const AllanPoint& point = MinimumOf(analysed);
    return RmsText(point.deviation * scale.volts) + ", " + LsbText(point.deviation * scale.lsb) +
           ", over " + SecondsText(SecondsOf(analysed, point));
}

std::string Heading(const FileStability& analysed, const CodeScale& scale) {
    return std::string(TraitsOf(analysed.conditions.converter).name) +
           " ADC Stability, Overlapping Allan Deviation\n" +
           CaptionedLines({
               {"File", analysed.file},
               {"Codes Read", std::to_string(analysed.count)},
               {"Rate", HertzText(analysed.rate)},
               {"Minimum", MinimumText(analysed, scale)},
           });
}

std::string Table(const FileStability& analysed, const CodeScale& scale) {
    std::vector<std::vector<std::string>> rows{
        {"Readings", "Time", "Deviation", "95 % from", "to", "in LSB", "White Noise"}};
    for (const AllanPoint& point : analysed.points) {
        const double white = WhiteNoiseDeviation(analysed.points, point.factor);
        rows.push_back({std::to_string(point.factor), SecondsText(SecondsOf(analysed, point)),
                        RmsText(point.deviation * scale.volts), RmsText(point.low * scale.volts),
                        RmsText(point.high * scale.volts), LsbText(point.deviation * scale.lsb),
                        RmsText(white * scale.volts)});
    }
    return TableText(rows);
}

}  // namespace

std::string StabilityText(const FileStability& analysed) {
    const CodeScale scale = ReportedScale(analysed.conditions);
    const std::string heading = Heading(analysed, scale);
    return analysed.points.empty() ? heading : heading + "\n" + Table(analysed, scale);
}

std::string StabilityCsv(const FileStability& analysed) {
    return StabilityCsv(analysed.points, analysed.rate, ReportedScale(analysed.conditions),
                        TimeUnit::Second);
}

std::string StabilityJson(const FileStability& analysed) {
    const CodeScale scale = ReportedScale(analysed.conditions);
    QJsonArray values;
    for (const AllanPoint& point : analysed.points) {
        const double white = WhiteNoiseDeviation(analysed.points, point.factor);
        values.append(QJsonObject{{"readings", static_cast<qint64>(point.factor)},
                                  {"tauSeconds", SecondsOf(analysed, point)},
                                  {"deviationVolts", point.deviation * scale.volts},
                                  {"lowVolts", point.low * scale.volts},
                                  {"highVolts", point.high * scale.volts},
                                  {"deviationLsb", point.deviation * scale.lsb},
                                  {"whiteNoiseVolts", white * scale.volts}});
    }
    QJsonObject object = ConditionsObject(analysed.conditions);
    object["count"] = static_cast<qint64>(analysed.count);
    object["rateHz"] = analysed.rate;
    object["minimumVolts"] = analysed.points.empty()
                                 ? QJsonValue()
                                 : QJsonValue(MinimumOf(analysed).deviation * scale.volts);
    object["values"] = values;
    object["warnings"] = WarningsValue(analysed.warnings);
    object["conditions"] = ReadingValue(analysed.reading);
    return JsonText(object);
}

}  // namespace vx3260
