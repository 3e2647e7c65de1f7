// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/RecordingLines.h"

#include <algorithm>

#include "acquisition/Temperature.h"
#include "link/UtcTime.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr int elapsedDecimals = 6;
constexpr int codeDecimals = 4;
constexpr int moreDecimalsOfMeans = 2;
constexpr int temperatureDecimals = 3;

std::string Beginning(const RecordingMoment& moment, Converter converter) {
    return IsoTimeText(moment.utc) + "," + FixedText(moment.elapsed, elapsedDecimals) + "," +
           std::string(TraitsOf(converter).word) + ",";
}

}  // namespace

RecordingLines::RecordingLines(const std::vector<ConversionConditions>& conditions,
                               std::optional<float> sensorSlope)
    : sensorSlope_(sensorSlope) {
    for (const ConversionConditions& each : conditions) {
        converters_.push_back({each, DecimalsFor(each.lsbVolts)});
    }
}

std::string RecordingLines::CodeColumns() const {
    return "utc,elapsed_s,converter,code,volts" + TemperatureColumn();
}

std::string RecordingLines::IntervalColumns() const {
    return "utc,elapsed_s,converter,count,mean_code,sigma_code,min_code,max_code,mean_volts,"
           "sigma_volts" +
           TemperatureColumn();
}

const RecordingLines::ConverterLine& RecordingLines::Of(Converter converter) const {
    return *std::find_if(
        converters_.begin(), converters_.end(),
        [converter](const ConverterLine& line) { return line.conditions.converter == converter; });
}

std::string RecordingLines::Temperature(const ConversionConditions& conditions, double code) const {
    if (!sensorSlope_) {
        return "";
    }
    return conditions.converter == Converter::Main
               ? ","
               : "," + FixedText(CelsiusOf(conditions.VoltsOf(code), *sensorSlope_),
                                 temperatureDecimals);
}

std::string RecordingLines::Line(const RecordingMoment& moment,
                                 const RecordedCode& recorded) const {
    const auto& [conditions, decimals] = Of(recorded.converter);
    return Beginning(moment, recorded.converter) + std::to_string(recorded.code) + "," +
           FixedText(conditions.VoltsOf(recorded.code), decimals) +
           Temperature(conditions, recorded.code);
}

std::string RecordingLines::Line(const RecordingMoment& start, Converter converter,
                                 const IntervalFigures& figures) const {
    const auto& [conditions, decimals] = Of(converter);
    const int more = decimals + moreDecimalsOfMeans;
    return Beginning(start, converter) + std::to_string(figures.Count()) + "," +
           FixedText(figures.Mean(), codeDecimals) + "," +
           FixedText(figures.Sigma(), codeDecimals) + "," + std::to_string(figures.Min()) + "," +
           std::to_string(figures.Max()) + "," +
           FixedText(conditions.VoltsOf(figures.Mean()), more) + "," +
           FixedText(figures.Sigma() * conditions.lsbVolts, more) +
           Temperature(conditions, figures.Mean());
}

}  // namespace vx3260
