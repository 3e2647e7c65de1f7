// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "analysis/Histogram.h"
#include "analysis/NormalFit.h"

/// Charts as SVG elements, for a report that needs no other file. Positions of ticks and ranges of
/// axes are those of the plots (analysis/PlotScale.h).
namespace vx3260 {

/// A point with its 95 % limits.
struct ChartPoint {
    double x;
    double y;
    double low;
    double high;
};

struct ChartSeries {
    std::string name;
    std::vector<ChartPoint> points;
};

/// Noise in volts over the update rate in hertz, on logarithmic axes. A dashed line beside each
/// series has the slope of white noise, the root of the rate. All numbers are above 0.
std::string NoiseChart(const std::vector<ChartSeries>& series);

/// How often the codes of a block occur, beside the normal curve.
std::string HistogramChart(const Histogram& histogram, const NormalFit& fit, std::size_t readings);

/// A text in which HTML has no markup.
std::string Escaped(const std::string& text);

}  // namespace vx3260
