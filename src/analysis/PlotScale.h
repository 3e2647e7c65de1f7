// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/Histogram.h"
#include "analysis/NoiseAnalysis.h"

namespace vx3260 {

/// What an axis shows, from its lower to its upper end.
struct AxisRange {
    double lower;
    double upper;

    double Span() const { return upper - lower; }
};

/// The distance of ticks: the smallest of the series 1, 2, 5 times a power of ten that divides
/// `span` into no more than `maxSteps` steps and is not below `minStep`, itself of the series: with
/// 1 the ticks are whole numbers. `span` is above 0, `maxSteps` 1 or more.
double TickStep(double span, int maxSteps, double minStep = 0);

/// The distance of the marks between ticks: half a step of the series' 2, else a fifth; 0, for
/// none, where that is below `minStep`.
double SubTickStep(double step, double minStep = 0);

/// The multiples of `step` within the range, its ends included.
std::vector<double> TicksIn(const AxisRange& range, double step);

/// The decimals that keep ticks of that distance apart.
int DecimalsOf(double step);

/// Round numbers along a logarithmic axis above 0.
struct LogTicks {
    std::vector<double> ticks;
    std::vector<double> subTicks;  ///< marks between them
};

/// No more than `maxTicks` ticks: at 1, 2 and 5 times the powers of ten, at the powers of ten, or
/// at some of those; along less than a decade at equal distances where these are more.
LogTicks LogTicksIn(const AxisRange& range, int maxTicks);

/// The range with `fraction` of its span added at either end, and at least the ratio `minRatio`
/// between its ends; all by logarithms.
AxisRange WithLogMargin(const AxisRange& range, double fraction, double minRatio);

/// How the ticks of a voltage axis are written.
struct VoltsScale {
    double unit;                ///< volts
    std::string_view unitName;  ///< nV, uV, mV or V
    int decimals;

    /// The figure without its unit.
    std::string TextOf(double volts) const;
};

/// One unit for the whole axis, that of its largest magnitude, and as many decimals as keep ticks
/// of that distance apart: 15.078 and 15.080 mV.
VoltsScale VoltsScaleOf(const AxisRange& volts, double step);

/// The range with `fraction` of its span added at either end, or `minSpan` around its middle
/// where that is more.
AxisRange WithMargin(const AxisRange& range, double fraction, double minSpan);

/// What a strip chart of the block shows: all codes and the mean with its sigma.
AxisRange CodeAxisOf(const NoiseAnalysis& analysis);

/// What a histogram shows: all bins and the normal curve as far as PeakToPeakSigmas goes.
AxisRange BinAxisOf(const Histogram& histogram, const NormalFit& fit);

/// From 0 to above the fullest bin and the top of the normal curve.
AxisRange CountAxisOf(const Histogram& histogram, const NoiseAnalysis& analysis);

}  // namespace vx3260
