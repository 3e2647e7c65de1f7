// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseAnalysis.h"

#include <cmath>
#include <limits>

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr double nanovoltsPerVolt = 1e9;

/// How a voltage is shown, below a limit in nanovolts.
struct VoltageScale {
    double limit;
    double divisor;
    std::string_view format;
    std::string_view unit;
};

constexpr double unlimited = std::numeric_limits<double>::infinity();

constexpr VoltageScale rmsScales[] = {
    {1e3, 1, "0.00", " nV"}, {1e6, 1e3, "0.00", " uV"}, {unlimited, 1e6, "0.00", " mV"}};

constexpr VoltageScale peakToPeakScales[] = {
    {1e3, 1, "0.000", " nV"}, {1e6, 1e3, "0.000", " uV"}, {unlimited, 1e6, "0.000", " mV"}};

constexpr VoltageScale averageScales[] = {{1e3, 1, "00.000", " nV"},
                                          {1e6, 1e3, "00.000", " uV"},
                                          {1e9, 1e6, "0.000", " mV"},
                                          {unlimited, 1e9, "0.000", " V"}};

std::string VoltageText(double nanovolts, std::span<const VoltageScale> scales) {
    std::size_t i = 0;
    while (i + 1 < scales.size() && nanovolts >= scales[i].limit) {
        ++i;
    }
    return FormatNumber(nanovolts / scales[i].divisor, scales[i].format) +
           std::string(scales[i].unit);
}

std::string LsbText(double lsbVolts) {
    constexpr double microvolt = 1e-6;
    return lsbVolts > microvolt ? FormatNumber(lsbVolts * 1e6, "0.###") + " uV"
                                : FormatNumber(lsbVolts * nanovoltsPerVolt, "0.###") + " nV";
}

/// The sign is dropped by design: a negative average shows as its magnitude.
double AverageNanovolts(const ConversionConditions& conditions, float averageCode) {
    return std::abs(conditions.VoltsOf(std::floor(averageCode)) * nanovoltsPerVolt);
}

NoiseTexts TextsOf(std::size_t count, const ConversionConditions& conditions,
                   const BlockStatistics& statistics) {
    const double lsbNanovolts = conditions.lsbVolts * nanovoltsPerVolt;
    const std::int32_t span = Difference(statistics.maxCode, statistics.minCode);
    return {
        std::to_string(count),
        conditions.rangeText,
        LsbText(conditions.lsbVolts),
        FormatNumber(conditions.referenceVoltage, "##.00") + " V",
        VoltageText(lsbNanovolts * statistics.rmsNoiseLsb, rmsScales),
        VoltageText(lsbNanovolts * span, peakToPeakScales),
        VoltageText(AverageNanovolts(conditions, statistics.averageCode), averageScales),
        HexText(statistics.rmsNoiseLsb),
        HexText(ToInt32(statistics.averageCode)),
        HexText(span),
        HexText(statistics.maxCode),
        HexText(statistics.minCode),
    };
}

}  // namespace

bool RefusedByCount(MessageBoxes& messages, std::int32_t count) {
    if (CountFitsAnalysis(count)) {
        return false;
    }
    messages.Show({.text = std::string(CountRefusal)});
    return true;
}

NoiseAnalysis AnalyseNoise(std::span<const double> codes, const ConversionConditions& conditions) {
    const BlockStatistics statistics = ComputeStatistics(codes);
    const ExactStatistics exact = ComputeExactStatistics(codes);
    const std::int32_t span = Difference(statistics.maxCode, statistics.minCode);
    return {.conditions = conditions,
            .count = codes.size(),
            .statistics = statistics,
            .exact = exact,
            .resolution = ComputeResolution(codes.size(), exact.sigma, span, conditions.Bits()),
            .texts = TextsOf(codes.size(), conditions, statistics)};
}

}  // namespace vx3260
