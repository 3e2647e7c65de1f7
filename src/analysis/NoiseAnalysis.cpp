#include "analysis/NoiseAnalysis.h"

#include <cmath>
#include <limits>

#include "link/RegisterMap.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr int mainBits = 24;
constexpr double fullScaleOfReference = 1.024;
constexpr int largestRangeCode = 7;
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

/// The two largest ranges are named in volts and without a blank before the unit.
std::string MainRangeText(int rangeCode, Polarity polarity) {
    const std::string prefix = polarity == Polarity::Unipolar ? "" : "± ";
    const float range = RegisterMap::InputRanges.at(static_cast<std::size_t>(rangeCode));
    if (rangeCode >= largestRangeCode - 1) {
        return prefix + ShortestText(range) + "V";
    }
    return prefix + ShortestText(range * 1000.0F) + " mV";
}

std::string LsbText(double lsbVolts) {
    constexpr double microvolt = 1e-6;
    return lsbVolts > microvolt ? FormatNumber(lsbVolts * 1e6, "0.###") + " uV"
                                : FormatNumber(lsbVolts * nanovoltsPerVolt, "0.###") + " nV";
}

/// The sign is dropped by design: a negative average shows as its magnitude.
double AverageNanovolts(const NoiseConditions& conditions, float averageCode) {
    const double codesFromZero = std::floor(averageCode) - conditions.zeroCode;
    return std::abs(codesFromZero * conditions.lsbVolts * nanovoltsPerVolt);
}

NoiseTexts TextsOf(std::size_t count, const NoiseConditions& conditions,
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

NoiseConditions MainNoiseConditions(float referenceVoltage, int rangeCode, Polarity polarity) {
    const double gain = std::ldexp(1.0, largestRangeCode - rangeCode);
    const int polarityFactor = static_cast<int>(polarity);
    return {
        .referenceVoltage = referenceVoltage,
        .inputRange = RegisterMap::InputRanges.at(static_cast<std::size_t>(rangeCode)),
        .polarity = polarity,
        .lsbVolts =
            std::ldexp(referenceVoltage * fullScaleOfReference / gain * polarityFactor, -mainBits),
        .zeroCode = polarity == Polarity::Unipolar ? 0.0 : std::ldexp(1.0, mainBits - 1),
        .rangeText = MainRangeText(rangeCode, polarity),
    };
}

NoiseConditions MainNoiseConditionsOf(float referenceVoltage, std::int16_t mainControl) {
    const bool unipolar = (mainControl & RegisterMap::UnipolarMask) != 0;
    return MainNoiseConditions(referenceVoltage, mainControl & RegisterMap::RangeMask,
                               unipolar ? Polarity::Unipolar : Polarity::Bipolar);
}

NoiseAnalysis AnalyseNoise(std::span<const double> codes, const NoiseConditions& conditions) {
    const BlockStatistics statistics = ComputeStatistics(codes);
    return {.conditions = conditions,
            .count = codes.size(),
            .statistics = statistics,
            .exact = ComputeExactStatistics(codes),
            .texts = TextsOf(codes.size(), conditions, statistics)};
}

}  // namespace vx3260
