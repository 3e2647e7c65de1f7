// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/PlotScale.h"

#include <algorithm>
#include <cmath>

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

/// The tolerance for rounded quotients, in parts of them or in steps.
constexpr double rounding = 1e-9;

constexpr double margin = 0.05;

/// The smallest span of an axis, in steps: that of a block of equal codes is 0.
constexpr double minSteps = 10;

double DecadeBelow(double value) {
    return std::pow(10, std::floor(std::log10(value) + rounding));
}

/// The factors times powers of ten within the range, of every so many decades. They are the numbers
/// that their texts stand for.
std::vector<double> DecadeTicksIn(const AxisRange& range, const std::vector<int>& factors,
                                  int decades) {
    const auto first = static_cast<int>(std::floor(std::log10(range.lower)));
    const auto last = static_cast<int>(std::ceil(std::log10(range.upper)));
    std::vector<double> ticks;
    for (int exponent = first; exponent <= last; ++exponent) {
        for (const int factor : factors) {
            const double tick =
                TextToDouble(std::to_string(factor) + "e" + std::to_string(exponent));
            if (exponent % decades == 0 && tick >= range.lower * (1 - rounding) &&
                tick <= range.upper * (1 + rounding)) {
                ticks.push_back(tick);
            }
        }
    }
    return ticks;
}

}  // namespace

double TickStep(double span, int maxSteps, double minStep) {
    const double wanted = span / maxSteps;
    const double decade = DecadeBelow(wanted);
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * decade >= wanted * (1 - rounding)) {
            return std::max(factor * decade, minStep);
        }
    }
    return std::max(10 * decade, minStep);
}

double SubTickStep(double step, double minStep) {
    const bool isTwo = std::lround(step / DecadeBelow(step)) == 2;
    const double subStep = step / (isTwo ? 2 : 5);
    return subStep < minStep * (1 - rounding) ? 0 : subStep;
}

std::vector<double> TicksIn(const AxisRange& range, double step) {
    const double first = std::ceil(range.lower / step - rounding);
    const double last = std::floor(range.upper / step + rounding);
    std::vector<double> ticks;
    for (double number = first; number <= last; ++number) {
        ticks.push_back(number * step);
    }
    return ticks;
}

int DecimalsOf(double step) {
    return std::max(0, static_cast<int>(std::ceil(-std::log10(step) - rounding)));
}

LogTicks LogTicksIn(const AxisRange& range, int maxTicks) {
    const std::vector<double> all = DecadeTicksIn(range, {1, 2, 3, 4, 5, 6, 7, 8, 9}, 1);
    std::vector<double> ticks = DecadeTicksIn(range, {1, 2, 5}, 1);
    const auto most = static_cast<std::size_t>(std::max(1, maxTicks));
    if (range.upper / range.lower < 10) {
        std::vector<double> even = TicksIn(range, TickStep(range.Span(), maxTicks));
        if (even.size() > ticks.size() && even.size() <= most + 1) {
            return {std::move(even), {}};
        }
    }
    for (int decades = 1; ticks.size() > most; ++decades) {
        ticks = DecadeTicksIn(range, {1}, decades);
    }
    return {std::move(ticks), all};
}

AxisRange WithLogMargin(const AxisRange& range, double fraction, double minRatio) {
    const AxisRange logs = WithMargin({std::log10(range.lower), std::log10(range.upper)}, fraction,
                                      std::log10(minRatio));
    return {std::pow(10, logs.lower), std::pow(10, logs.upper)};
}

std::string VoltsScale::TextOf(double volts) const {
    return FixedText(volts / unit, decimals);
}

VoltsScale VoltsScaleOf(const AxisRange& volts, double step) {
    const VoltsUnit unit = VoltsUnitOf(std::max(std::abs(volts.lower), std::abs(volts.upper)));
    return {unit.volts, unit.name, DecimalsOf(step / unit.volts)};
}

AxisRange WithMargin(const AxisRange& range, double fraction, double minSpan) {
    const double middle = range.lower + range.Span() / 2;
    const double half = std::max(range.Span() * (1 + 2 * fraction), minSpan) / 2;
    return {middle - half, middle + half};
}

AxisRange CodeAxisOf(const NoiseAnalysis& analysis) {
    const auto [mean, sigma] = analysis.exact;
    return WithMargin({std::min<double>(analysis.statistics.minCode, mean - sigma),
                       std::max<double>(analysis.statistics.maxCode, mean + sigma)},
                      margin, minSteps * analysis.own.codeStep);
}

AxisRange BinAxisOf(const Histogram& histogram, const NormalFit& fit) {
    const double halfStep = histogram.step / 2.0;
    const double reach = PeakToPeakSigmas / 2 * fit.sigma;
    const auto first = static_cast<double>(histogram.firstCode);
    const auto end = static_cast<double>(histogram.FirstCodeOf(histogram.counts.size()));
    return WithMargin(
        {std::min(first - halfStep, fit.mean - reach), std::max(end - halfStep, fit.mean + reach)},
        margin, minSteps * histogram.step);
}

AxisRange CountAxisOf(const Histogram& histogram, const NoiseAnalysis& analysis) {
    const double fullest =
        static_cast<double>(*std::max_element(histogram.counts.begin(), histogram.counts.end()));
    const double top =
        NormalCount(analysis.normal.mean, analysis.normal, analysis.count, histogram.binWidth);
    return {0, std::max(fullest, top) * (1 + margin)};
}

}  // namespace vx3260
