// SPDX-License-Identifier: GPL-3.0-or-later
#include "characterisation/Chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <utility>

#include "analysis/PlotScale.h"
#include "analysis/UnitTexts.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr double leftMargin = 80;
constexpr double rightMargin = 110;
constexpr double topMargin = 16;
constexpr double bottomMargin = 48;
constexpr int maxTicks = 9;

/// Distinguishable with every kind of colour vision (Okabe and Ito); eight ranges have one each.
constexpr std::array<const char*, 8> colours = {"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                                "#56b4e9", "#e69f00", "#000000", "#8a8a00"};

/// An axis from `from` to `to` in the picture's units, for what it shows.
struct Axis {
    AxisRange range;
    bool logarithmic;
    double from;
    double to;

    double At(double value) const {
        const auto scaled = [this](double x) { return logarithmic ? std::log10(x) : x; };
        return from + (to - from) * (scaled(value) - scaled(range.lower)) /
                          (scaled(range.upper) - scaled(range.lower));
    }
};

Axis Horizontal(const AxisRange& range, bool logarithmic) {
    return {range, logarithmic, leftMargin, ChartWidth - rightMargin};
}

Axis Vertical(const AxisRange& range, bool logarithmic) {
    return {range, logarithmic, ChartHeight - bottomMargin, topMargin};
}

constexpr ChartPen gridPen{"#cccccc"};
constexpr double textDrop = 4;  ///< from a text's middle to its base line

std::vector<double> TicksOf(const Axis& axis) {
    return axis.logarithmic ? LogTicksIn(axis.range, maxTicks).ticks
                            : TicksIn(axis.range, TickStep(axis.range.Span(), maxTicks, 1));
}

using TickLabel = std::function<std::string(double)>;

void DrawGrid(ChartCanvas& canvas, const Axis& x, const Axis& y, const TickLabel& xText,
              const TickLabel& yText) {
    constexpr double gap = 6;
    constexpr double below = 16;
    for (const double tick : TicksOf(x)) {
        const double at = x.At(tick);
        canvas.Line({at, y.from}, {at, y.to}, gridPen);
        canvas.Text({at, y.from + below}, ChartAnchor::Middle, xText(tick));
    }
    for (const double tick : TicksOf(y)) {
        const double at = y.At(tick);
        canvas.Line({x.from, at}, {x.to, at}, gridPen);
        canvas.Text({x.from - gap, at + textDrop}, ChartAnchor::End, yText(tick));
    }
}

void DrawTitles(ChartCanvas& canvas, const std::string& x, const std::string& y) {
    constexpr double margin = 8;
    constexpr double left = 14;
    canvas.Text({(leftMargin + ChartWidth - rightMargin) / 2, ChartHeight - margin},
                ChartAnchor::Middle, x);
    canvas.UprightText({left, (topMargin + ChartHeight - bottomMargin) / 2}, y);
}

AxisRange RangeOf(const std::vector<ChartSeries>& series, double ChartPoint::*lower,
                  double ChartPoint::*upper) {
    constexpr double margin = 0.06;
    constexpr double minRatio = 4;
    AxisRange range{HUGE_VAL, 0};
    for (const ChartSeries& one : series) {
        for (const ChartPoint& point : one.points) {
            range.lower = std::min(range.lower, point.*lower);
            range.upper = std::max(range.upper, point.*upper);
        }
    }
    return WithLogMargin(range, margin, minRatio);
}

/// The line of white noise through the middle of the points, by logarithms.
void DrawRootLine(ChartCanvas& canvas, const ChartSeries& series, const Axis& x, const Axis& y,
                  const char* colour) {
    double sum = 0;
    for (const ChartPoint& point : series.points) {
        sum += std::log(point.y / std::sqrt(point.x));
    }
    const double density = std::exp(sum / static_cast<double>(series.points.size()));
    const auto [slowest, fastest] =
        std::minmax_element(series.points.begin(), series.points.end(),
                            [](const auto& a, const auto& b) { return a.x < b.x; });
    const auto on = [&](double rate) {
        return ChartPosition{x.At(rate), y.At(density * std::sqrt(rate))};
    };
    canvas.Line(on(slowest->x), on(fastest->x), {.colour = colour, .dashed = true});
}

void DrawSeries(ChartCanvas& canvas, const ChartSeries& series, const Axis& x, const Axis& y,
                const char* colour) {
    constexpr double radius = 3;
    DrawRootLine(canvas, series, x, y, colour);
    std::vector<ChartPosition> points;
    for (const ChartPoint& point : series.points) {
        const double at = x.At(point.x);
        points.push_back({at, y.At(point.y)});
        canvas.Line({at, y.At(point.low)}, {at, y.At(point.high)}, {colour});
        canvas.Dot(points.back(), radius, colour);
    }
    canvas.Polyline(points, {colour});
}

/// The names of the series at the right, in their colours.
void DrawLegend(ChartCanvas& canvas, const std::vector<ChartSeries>& series) {
    constexpr double lineHeight = 18;
    constexpr double dash = 16;
    constexpr double gap = 12;
    const double x = ChartWidth - rightMargin + gap;
    double y = topMargin + gap;
    for (std::size_t i = 0; i < series.size(); ++i, y += lineHeight) {
        canvas.Line({x, y}, {x + dash, y}, {.colour = colours.at(i % colours.size()), .width = 2});
        canvas.Text({x + dash + gap / 2, y + textDrop}, ChartAnchor::Start, series[i].name);
    }
}

void DrawNoise(ChartCanvas& canvas, const std::vector<ChartSeries>& series) {
    const Axis x = Horizontal(RangeOf(series, &ChartPoint::x, &ChartPoint::x), true);
    const Axis y = Vertical(RangeOf(series, &ChartPoint::low, &ChartPoint::high), true);
    DrawGrid(canvas, x, y, TickText, VoltsTickText);
    DrawTitles(canvas, "Update rate (Hz)", "RMS noise");
    DrawLegend(canvas, series);
    for (std::size_t i = 0; i < series.size(); ++i) {
        DrawSeries(canvas, series[i], x, y, colours.at(i % colours.size()));
    }
}

void DrawHistogram(ChartCanvas& canvas, const Histogram& histogram, const NormalFit& fit,
                   std::size_t readings) {
    constexpr int curvePoints = 200;
    const AxisRange codes = BinAxisOf(histogram, fit);
    const Axis x = Horizontal(codes, false);
    const auto fullest =
        static_cast<double>(*std::max_element(histogram.counts.begin(), histogram.counts.end()));
    const double peak = NormalCount(fit.mean, fit, readings, histogram.binWidth);
    constexpr double headroom = 1.05;
    const Axis y = Vertical({0, std::max(fullest, peak) * headroom}, false);
    const auto whole = [](double value) { return FixedText(value, 0); };
    DrawGrid(canvas, x, y, whole, whole);
    DrawTitles(canvas, "Code", "Readings per bin");
    const double half = static_cast<double>(histogram.binWidth) / 2;
    for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
        const double left = x.At(histogram.CentreOf(bin) - half);
        const double right = x.At(histogram.CentreOf(bin) + half);
        const double top = y.At(static_cast<double>(histogram.counts[bin]));
        canvas.Bar({left, top}, right - left, y.from - top, colours[0]);
    }
    std::vector<ChartPosition> curve;
    for (int i = 0; fit.sigma > 0 && i <= curvePoints; ++i) {
        const double code = codes.lower + codes.Span() * i / curvePoints;
        curve.push_back({x.At(code), y.At(NormalCount(code, fit, readings, histogram.binWidth))});
    }
    canvas.Polyline(curve, {.colour = colours[1], .width = 2});
}

}  // namespace

Chart NoiseChart(std::vector<ChartSeries> series) {
    return {"RMS noise over update rate",
            [series = std::move(series)](ChartCanvas& canvas) { DrawNoise(canvas, series); }};
}

Chart HistogramChart(Histogram histogram, const NormalFit& fit, std::size_t readings) {
    return {"Histogram of codes",
            [histogram = std::move(histogram), fit, readings](ChartCanvas& canvas) {
                DrawHistogram(canvas, histogram, fit, readings);
            }};
}

}  // namespace vx3260
