// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/PlotScale.h"

#include <algorithm>
#include <cmath>

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

std::string VoltsScale::TextOf(double volts) const {
    return FixedText(volts / unit, decimals);
}

VoltsScale VoltsScaleOf(const AxisRange& volts, double step) {
    const VoltsUnit unit = VoltsUnitOf(std::max(std::abs(volts.lower), std::abs(volts.upper)));
    const double decimals = std::ceil(-std::log10(step / unit.volts) - rounding);
    return {unit.volts, unit.name, std::max(0, static_cast<int>(decimals))};
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
