// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "analysis/Histogram.h"
#include "analysis/NormalFit.h"

/// Charts of a report, whatever they are drawn on. Positions of ticks and ranges of axes are those
/// of the plots (analysis/PlotScale.h).
namespace vx3260 {

/// The size of all charts, in units of their own; y grows downwards.
inline constexpr double ChartWidth = 720;
inline constexpr double ChartHeight = 360;
inline constexpr double ChartFontSize = 12;  ///< height of a text's em

struct ChartPosition {
    double x;
    double y;
};

struct ChartPen {
    const char* colour;  ///< "#rrggbb"
    double width = 1;
    bool dashed = false;  ///< dashes and gaps of 4 units, less opaque
};

/// Where a text's position is.
enum class ChartAnchor { Start, Middle, End };

/// What a chart is drawn on.
class ChartCanvas {
  public:
    virtual ~ChartCanvas() = default;

    virtual void Line(ChartPosition from, ChartPosition to, const ChartPen& pen) = 0;
    virtual void Polyline(const std::vector<ChartPosition>& points, const ChartPen& pen) = 0;
    /// A bar of a histogram, from its upper left corner: a border, and a lighter area.
    virtual void Bar(ChartPosition corner, double width, double height, const char* colour) = 0;
    /// A filled circle.
    virtual void Dot(ChartPosition centre, double radius, const char* colour) = 0;
    /// A text on its base line.
    virtual void Text(ChartPosition at, ChartAnchor anchor, const std::string& text) = 0;
    /// The same, read from below to above, centred at `at`.
    virtual void UprightText(ChartPosition at, const std::string& text) = 0;

  protected:
    ChartCanvas() = default;
    ChartCanvas(const ChartCanvas&) = default;
    ChartCanvas(ChartCanvas&&) = default;
    ChartCanvas& operator=(const ChartCanvas&) = default;
    ChartCanvas& operator=(ChartCanvas&&) = default;
};

struct Chart {
    std::string label;  ///< what it shows, for who does not see it
    std::function<void(ChartCanvas&)> draw;
};

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
Chart NoiseChart(std::vector<ChartSeries> series);

/// How often the codes of a block occur, beside the normal curve.
Chart HistogramChart(Histogram histogram, const NormalFit& fit, std::size_t readings);

}  // namespace vx3260
