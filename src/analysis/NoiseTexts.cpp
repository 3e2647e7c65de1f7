// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseTexts.h"

#include <algorithm>
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

std::string CodeSizeText(double lsbVolts) {
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

constexpr const char* notDefined = "not defined";

/// "8388612.4 ± 5.9", with two digits of the uncertainty; without it where that is 0, unknown.
std::string PlusMinus(double value, double uncertainty) {
    if (uncertainty == 0) {
        return ShortestText(value);
    }
    const int decimals = DecimalsFor(uncertainty);
    return FixedText(value, decimals) + " ± " + FixedText(uncertainty, decimals);
}

/// The standard error of a mean, 0 of a single reading. Noise well below a step does not average
/// the rounding out.
double MeanUncertainty(std::size_t readings, double sigma, int step) {
    if (readings < 2) {
        return 0;
    }
    const double error = sigma / std::sqrt(static_cast<double>(readings));
    const double rounding = RoundingSigma * step;
    return sigma < rounding ? std::max(error, rounding) : error;
}

ResolutionText MeanFromZeroText(const NoiseAnalysis& analysis) {
    const ConversionConditions& own = analysis.own;
    const double codes = analysis.exact.mean - own.zeroCode;
    const double error = MeanUncertainty(analysis.count, analysis.exact.sigma, own.codeStep);
    const VoltsUnit unit = VoltsUnitOf(std::max(std::abs(codes), error) * own.lsbVolts);
    const auto in = [&](double scale, std::string_view name) {
        return PlusMinus(codes * scale, error * scale) + " " + std::string(name);
    };
    return {in(1.0 / own.codeStep, "LSB"), in(own.lsbVolts / unit.volts, unit.name)};
}

/// "419.3 LSB (406.1 to 433.3)": a figure with its interval, both times `scale`, in a unit.
std::string WithLimits(double figure, const std::optional<Interval>& limits, double scale,
                       std::string_view unit) {
    if (!limits) {
        return ShortestText(figure * scale) + " " + std::string(unit);
    }
    const int decimals = DecimalsFor(limits->Uncertainty() * scale);
    const auto text = [decimals, scale](double value) {
        return FixedText(value * scale, decimals);
    };
    return text(figure) + " " + std::string(unit) + " (" + text(limits->low) + " to " +
           text(limits->high) + ")";
}

/// A noise of `factor` times sigma.
ResolutionText NoiseText(const NoiseAnalysis& analysis, double factor) {
    const Resolution& resolution = analysis.resolution;
    if (!resolution.rmsNoise) {
        return {notDefined, notDefined};
    }
    const auto in = [&](double scale, std::string_view unit) {
        return WithLimits(*resolution.rmsNoise, resolution.rmsNoiseLimits, factor * scale, unit);
    };
    const double lsb = analysis.own.lsbVolts;
    const VoltsUnit unit = VoltsUnitOf(*resolution.rmsNoise * factor * lsb);
    return {in(1.0 / analysis.own.codeStep, "LSB"), in(lsb / unit.volts, unit.name)};
}

/// A lower bound is rounded down.
std::string BitsText(const std::optional<ResolutionBits>& resolution) {
    if (!resolution) {
        return notDefined;
    }
    constexpr double hundredths = 100;
    if (resolution->isLowerBound) {
        return "≥ " + ShortestText(std::floor(resolution->bits * hundredths) / hundredths) +
               " bits";
    }
    return resolution->limits ? WithLimits(resolution->bits, resolution->limits, 1, "bits")
                              : FixedText(resolution->bits, 2) + " bits";
}

std::string NormalityText(const BlockShape& shape) {
    if (!shape.normalityP) {
        return notDefined;
    }
    constexpr double minShown = 1e-4;
    const double p = *shape.normalityP;
    const std::string text =
        p < minShown ? "p < 0.0001" : "p = " + FixedText(p, std::min(DecimalsFor(p), 4));
    return text +
           (shape.test == NormalityTest::ChiSquare ? " (chi-square)" : " (D'Agostino-Pearson)");
}

/// `variance` is that of Gaussian noise, times the number of readings.
std::string ShapeText(std::optional<double> figure, double variance, std::size_t readings) {
    return figure ? FixedText(*figure,
                              DecimalsFor(std::sqrt(variance / static_cast<double>(readings))))
                  : notDefined;
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
            return CodeSizeText(analysis.conditions.lsbVolts);
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
        case ResolutionFigure::MeanCode:
            return {PlusMinus(
                analysis.exact.mean,
                MeanUncertainty(analysis.count, analysis.exact.sigma, analysis.own.codeStep))};
        case ResolutionFigure::MeanFromZero:
            return MeanFromZeroText(analysis);
        case ResolutionFigure::RmsNoise:
            return NoiseText(analysis, 1);
        case ResolutionFigure::PeakToPeak:
            return NoiseText(analysis, PeakToPeakSigmas);
        case ResolutionFigure::Effective:
            return {BitsText(resolution.effective)};
        case ResolutionFigure::NoiseFreeFromSigma:
            return {BitsText(resolution.noiseFreeFromSigma)};
        case ResolutionFigure::NoiseFree:
            return {BitsText(resolution.noiseFree) +
                    (resolution.noiseFree ? ", N = " + std::to_string(resolution.readings) : "")};
    }
    return {};
}

NormalFigures ComputeNormalFigures(std::span<const double> codes, int step) {
    const ExactStatistics exact = ComputeExactStatistics(codes);
    const NormalFit normal = FitNormal(codes, exact, step);
    return {.readings = codes.size(),
            .step = step,
            .exact = exact,
            .normal = normal,
            .shape = ComputeShape(codes, exact, normal, step)};
}

NormalTexts TextsOf(const NormalFigures& figures) {
    constexpr double skewnessVariance = 6;
    constexpr double kurtosisVariance = 24;
    const auto n = static_cast<double>(figures.readings);
    const double sigma = figures.normal.sigma / figures.step;
    return {
        .mean = PlusMinus(figures.exact.mean,
                          MeanUncertainty(figures.readings, figures.exact.sigma, figures.step)),
        .sigma =
            (sigma > 0 ? FixedText(sigma, DecimalsFor(sigma / std::sqrt(2 * n))) : "0") + " LSB",
        .skewness = ShapeText(figures.shape.moments.skewness, skewnessVariance, figures.readings),
        .excessKurtosis =
            ShapeText(figures.shape.moments.excessKurtosis, kurtosisVariance, figures.readings),
        .normality = NormalityText(figures.shape),
    };
}

}  // namespace vx3260
