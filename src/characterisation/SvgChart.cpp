// SPDX-License-Identifier: GPL-3.0-or-later
#include "characterisation/SvgChart.h"

#include <QString>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "analysis/PlotScale.h"
#include "analysis/UnitTexts.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr double pictureWidth = 720;
constexpr double pictureHeight = 360;
constexpr double leftMargin = 80;
constexpr double rightMargin = 110;
constexpr double topMargin = 16;
constexpr double bottomMargin = 48;
constexpr int maxTicks = 9;

/// Distinguishable with every kind of colour vision (Okabe and Ito); eight ranges have one each.
constexpr std::array<const char*, 8> colours = {"#0072b2", "#d55e00", "#009e73", "#cc79a7",
                                                "#56b4e9", "#e69f00", "#000000", "#8a8a00"};

std::string Number(double value) {
    return FixedText(value, 2);
}

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
    return {range, logarithmic, leftMargin, pictureWidth - rightMargin};
}

Axis Vertical(const AxisRange& range, bool logarithmic) {
    return {range, logarithmic, pictureHeight - bottomMargin, topMargin};
}

std::string Line(double x1, double y1, double x2, double y2, const std::string& style) {
    return "<line x1=\"" + Number(x1) + "\" y1=\"" + Number(y1) + "\" x2=\"" + Number(x2) +
           "\" y2=\"" + Number(y2) + "\" " + style + "/>\n";
}

std::string Text(double x, double y, const std::string& anchor, const std::string& text,
                 const std::string& further = {}) {
    return "<text x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" text-anchor=\"" + anchor + "\" " +
           further + ">" + Escaped(text) + "</text>\n";
}

constexpr const char* gridStyle = "stroke=\"#ccc\"";
constexpr double fontHeight = 4;

std::vector<double> TicksOf(const Axis& axis) {
    return axis.logarithmic ? LogTicksIn(axis.range, maxTicks).ticks
                            : TicksIn(axis.range, TickStep(axis.range.Span(), maxTicks, 1));
}

std::string Grid(const Axis& x, const Axis& y, const std::function<std::string(double)>& xText,
                 const std::function<std::string(double)>& yText) {
    constexpr double gap = 6;
    constexpr double below = 16;
    std::string grid;
    for (const double tick : TicksOf(x)) {
        grid += Line(x.At(tick), y.from, x.At(tick), y.to, gridStyle) +
                Text(x.At(tick), y.from + below, "middle", xText(tick));
    }
    for (const double tick : TicksOf(y)) {
        grid += Line(x.from, y.At(tick), x.to, y.At(tick), gridStyle) +
                Text(x.from - gap, y.At(tick) + fontHeight, "end", yText(tick));
    }
    return grid;
}

std::string Titles(const std::string& x, const std::string& y) {
    constexpr double margin = 8;
    const double middle = (topMargin + pictureHeight - bottomMargin) / 2;
    return Text((leftMargin + pictureWidth - rightMargin) / 2, pictureHeight - margin, "middle",
                x) +
           Text(0, 0, "middle", y,
                "transform=\"translate(14 " + Number(middle) + ") rotate(-90)\"");
}

std::string Svg(const std::string& content, const std::string& label) {
    return "<svg viewBox=\"0 0 " + Number(pictureWidth) + " " + Number(pictureHeight) +
           "\" role=\"img\" aria-label=\"" + Escaped(label) + "\">\n" + content + "</svg>\n";
}

std::string Polyline(const std::vector<std::pair<double, double>>& points,
                     const std::string& style) {
    std::string text = "<polyline fill=\"none\" " + style + " points=\"";
    for (const auto& [x, y] : points) {
        text += Number(x) + "," + Number(y) + " ";
    }
    return text + "\"/>\n";
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
std::string RootLine(const ChartSeries& series, const Axis& x, const Axis& y,
                     const std::string& colour) {
    double sum = 0;
    for (const ChartPoint& point : series.points) {
        sum += std::log(point.y / std::sqrt(point.x));
    }
    const double density = std::exp(sum / static_cast<double>(series.points.size()));
    const auto [slowest, fastest] =
        std::minmax_element(series.points.begin(), series.points.end(),
                            [](const auto& a, const auto& b) { return a.x < b.x; });
    return Line(x.At(slowest->x), y.At(density * std::sqrt(slowest->x)), x.At(fastest->x),
                y.At(density * std::sqrt(fastest->x)),
                "stroke=\"" + colour + "\" stroke-dasharray=\"4 4\" stroke-opacity=\"0.6\"");
}

std::string Drawn(const ChartSeries& series, const Axis& x, const Axis& y,
                  const std::string& colour) {
    std::string text = RootLine(series, x, y, colour);
    std::vector<std::pair<double, double>> points;
    for (const ChartPoint& point : series.points) {
        points.emplace_back(x.At(point.x), y.At(point.y));
        text += Line(x.At(point.x), y.At(point.low), x.At(point.x), y.At(point.high),
                     "stroke=\"" + colour + "\"");
        text += "<circle cx=\"" + Number(points.back().first) + "\" cy=\"" +
                Number(points.back().second) + "\" r=\"3\" fill=\"" + colour + "\"/>\n";
    }
    return text + Polyline(points, "stroke=\"" + colour + "\"");
}

/// The names of the series at the right, in their colours.
std::string Legend(const std::vector<ChartSeries>& series) {
    constexpr double lineHeight = 18;
    constexpr double dash = 16;
    constexpr double gap = 12;
    std::string text;
    double y = topMargin + gap;
    for (std::size_t i = 0; i < series.size(); ++i, y += lineHeight) {
        const double x = pictureWidth - rightMargin + gap;
        text += Line(x, y, x + dash, y,
                     "stroke-width=\"2\" stroke=\"" + std::string(colours.at(i % colours.size())) +
                         "\"") +
                Text(x + dash + gap / 2, y + fontHeight, "start", series[i].name);
    }
    return text;
}

}  // namespace

std::string Escaped(const std::string& text) {
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
}

std::string NoiseChart(const std::vector<ChartSeries>& series) {
    const Axis x = Horizontal(RangeOf(series, &ChartPoint::x, &ChartPoint::x), true);
    const Axis y = Vertical(RangeOf(series, &ChartPoint::low, &ChartPoint::high), true);
    std::string content = Grid(x, y, TickText, VoltsTickText) +
                          Titles("Update rate (Hz)", "RMS noise") + Legend(series);
    for (std::size_t i = 0; i < series.size(); ++i) {
        content += Drawn(series[i], x, y, colours.at(i % colours.size()));
    }
    return Svg(content, "RMS noise over update rate");
}

std::string HistogramChart(const Histogram& histogram, const NormalFit& fit, std::size_t readings) {
    constexpr int curvePoints = 200;
    const AxisRange codes = BinAxisOf(histogram, fit);
    const Axis x = Horizontal(codes, false);
    const auto fullest =
        static_cast<double>(*std::max_element(histogram.counts.begin(), histogram.counts.end()));
    const double peak = NormalCount(fit.mean, fit, readings, histogram.binWidth);
    constexpr double headroom = 1.05;
    const Axis y = Vertical({0, std::max(fullest, peak) * headroom}, false);
    const auto whole = [](double value) { return FixedText(value, 0); };
    std::string content = Grid(x, y, whole, whole) + Titles("Code", "Readings per bin");
    const double half = static_cast<double>(histogram.binWidth) / 2;
    for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
        const double centre = histogram.CentreOf(bin);
        const double y1 = y.At(static_cast<double>(histogram.counts[bin]));
        content += "<rect x=\"" + Number(x.At(centre - half)) + "\" y=\"" + Number(y1) +
                   "\" width=\"" + Number(x.At(centre + half) - x.At(centre - half)) +
                   "\" height=\"" + Number(y.from - y1) +
                   "\" fill=\"#0072b2\" fill-opacity=\"0.35\" stroke=\"#0072b2\"/>\n";
    }
    std::vector<std::pair<double, double>> curve;
    for (int i = 0; fit.sigma > 0 && i <= curvePoints; ++i) {
        const double code = codes.lower + codes.Span() * i / curvePoints;
        curve.emplace_back(x.At(code), y.At(NormalCount(code, fit, readings, histogram.binWidth)));
    }
    return Svg(content + Polyline(curve, "stroke=\"#d55e00\" stroke-width=\"2\""),
               "Histogram of codes");
}

}  // namespace vx3260
