// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseTexts.h"

#include <cmath>
#include <limits>
#include <span>

#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

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
                                : FormatNumber(lsbVolts * NanovoltsPerVolt, "0.###") + " nV";
}

std::string CodesAsVoltage(const NoiseAnalysis& analysis, double codes,
                           std::span<const VoltageScale> scales) {
    return VoltageText(analysis.conditions.lsbVolts * NanovoltsPerVolt * codes, scales);
}

/// A negative average is shown as its magnitude, without a sign; intentional.
std::string AverageText(const NoiseAnalysis& analysis) {
    const double volts = analysis.conditions.VoltsOf(std::floor(analysis.statistics.averageCode));
    return VoltageText(std::abs(volts * NanovoltsPerVolt), averageScales);
}

/// From this range on, in volts, the name is in volts and has no space before the unit.
constexpr float minRangeNamedInVolts = 1;

std::string MainRangeText(float range) {
    return range >= minRangeNamedInVolts ? ShortestText(range) + "V"
                                         : ShortestText(range * 1000.0F) + " mV";
}

std::string AuxRangeText(const ConversionConditions& conditions) {
    return conditions.inputRange < conditions.referenceVoltage ? "REFIN2 / 2" : "REFIN2";
}

constexpr int digitsShown = 6;
constexpr int bitsDecimals = 2;

std::string BitsText(const ResolutionBits& resolution) {
    const int decimals = resolution.isLowerBound ? 0 : bitsDecimals;
    return (resolution.isLowerBound ? "≥ " : "") + FixedText(resolution.bits, decimals) + " bits";
}

ResolutionText CodesText(const NoiseAnalysis& analysis, double codes) {
    return {SignificantText(codes, digitsShown) + " LSB",
            VoltsText(codes * analysis.own.lsbVolts, digitsShown)};
}

}  // namespace

std::string RangeText(const ConversionConditions& conditions) {
    return (conditions.polarity == Polarity::Unipolar ? "" : "± ") +
           (conditions.converter == Converter::Main ? MainRangeText(conditions.inputRange)
                                                    : AuxRangeText(conditions));
}

std::optional<std::int32_t> HexNumberOf(const NoiseAnalysis& analysis, NoiseFigure figure) {
    switch (figure) {
        case NoiseFigure::RmsNoiseLsb:
            return analysis.statistics.rmsNoiseLsb;
        case NoiseFigure::AverageCode:
            return analysis.averageCode;
        case NoiseFigure::CodeSpan:
            return analysis.span;
        case NoiseFigure::MaxCode:
            return analysis.statistics.maxCode;
        case NoiseFigure::MinCode:
            return analysis.statistics.minCode;
        default:
            return std::nullopt;
    }
}

std::string TextOf(const NoiseAnalysis& analysis, NoiseFigure figure) {
    if (const auto number = HexNumberOf(analysis, figure)) {
        return HexText(*number);
    }
    const BlockStatistics& statistics = analysis.statistics;
    switch (figure) {
        case NoiseFigure::CodesRead:
            return std::to_string(analysis.count);
        case NoiseFigure::InputRange:
            return RangeText(analysis.conditions);
        case NoiseFigure::LsbSize:
            return LsbText(analysis.conditions.lsbVolts);
        case NoiseFigure::ReferenceVoltage:
            return FormatNumber(analysis.conditions.referenceVoltage, "##.00") + " V";
        case NoiseFigure::RmsNoise:
            return CodesAsVoltage(analysis, statistics.rmsNoiseLsb, rmsScales);
        case NoiseFigure::PeakToPeakNoise:
            return CodesAsVoltage(analysis, analysis.span, peakToPeakScales);
        case NoiseFigure::AverageValue:
            return AverageText(analysis);
        default:
            return {};
    }
}

ResolutionText TextOf(const NoiseAnalysis& analysis, ResolutionFigure figure) {
    const Resolution& resolution = analysis.resolution;
    switch (figure) {
        case ResolutionFigure::Readings:
            return {std::to_string(resolution.readings)};
        case ResolutionFigure::RmsNoise:
            return CodesText(analysis, resolution.rmsNoise);
        case ResolutionFigure::StandardError:
            return CodesText(analysis, resolution.standardError);
        case ResolutionFigure::PeakToPeak:
            return CodesText(analysis, resolution.peakToPeak);
        case ResolutionFigure::Effective:
            return {BitsText(resolution.effective)};
        case ResolutionFigure::NoiseFree:
            return {BitsText(resolution.noiseFree)};
    }
    return {};
}

}  // namespace vx3260
