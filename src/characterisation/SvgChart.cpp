// SPDX-License-Identifier: GPL-3.0-or-later
#include "characterisation/SvgChart.h"

#include <QString>

#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

std::string Number(double value) {
    return FixedText(value, 2);
}

const char* NameOf(ChartAnchor anchor) {
    switch (anchor) {
        case ChartAnchor::Start:
            return "start";
        case ChartAnchor::End:
            return "end";
        default:
            return "middle";
    }
}

std::string StyleOf(const ChartPen& pen) {
    std::string style = "stroke=\"" + std::string(pen.colour) + "\"";
    if (pen.width != 1) {
        style += " stroke-width=\"" + ShortestText(pen.width) + "\"";
    }
    return style + (pen.dashed ? R"( stroke-dasharray="4 4" stroke-opacity="0.6")" : "");
}

class SvgCanvas final : public ChartCanvas {
  public:
    void Line(ChartPosition from, ChartPosition to, const ChartPen& pen) override {
        text_ += "<line x1=\"" + Number(from.x) + "\" y1=\"" + Number(from.y) + "\" x2=\"" +
                 Number(to.x) + "\" y2=\"" + Number(to.y) + "\" " + StyleOf(pen) + "/>\n";
    }

    void Polyline(const std::vector<ChartPosition>& points, const ChartPen& pen) override {
        text_ += "<polyline fill=\"none\" " + StyleOf(pen) + " points=\"";
        for (const auto& [x, y] : points) {
            text_ += Number(x) + "," + Number(y) + " ";
        }
        text_ += "\"/>\n";
    }

    void Bar(ChartPosition corner, double width, double height, const char* colour) override {
        text_ += "<rect x=\"" + Number(corner.x) + "\" y=\"" + Number(corner.y) + "\" width=\"" +
                 Number(width) + "\" height=\"" + Number(height) + "\" fill=\"" + colour +
                 "\" fill-opacity=\"0.35\" stroke=\"" + colour + "\"/>\n";
    }

    void Dot(ChartPosition centre, double radius, const char* colour) override {
        text_ += "<circle cx=\"" + Number(centre.x) + "\" cy=\"" + Number(centre.y) + "\" r=\"" +
                 ShortestText(radius) + "\" fill=\"" + colour + "\"/>\n";
    }

    void Text(ChartPosition at, ChartAnchor anchor, const std::string& text) override {
        text_ += "<text x=\"" + Number(at.x) + "\" y=\"" + Number(at.y) + "\" text-anchor=\"" +
                 NameOf(anchor) + "\">" + Escaped(text) + "</text>\n";
    }

    void UprightText(ChartPosition at, const std::string& text) override {
        text_ += "<text text-anchor=\"middle\" transform=\"translate(" + Number(at.x) + " " +
                 Number(at.y) + ") rotate(-90)\">" + Escaped(text) + "</text>\n";
    }

    const std::string& Content() const { return text_; }

  private:
    std::string text_;
};

}  // namespace

std::string Escaped(const std::string& text) {
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
}

std::string SvgOf(const Chart& chart) {
    SvgCanvas canvas;
    chart.draw(canvas);
    return "<svg viewBox=\"0 0 " + ShortestText(ChartWidth) + " " + ShortestText(ChartHeight) +
           "\" role=\"img\" aria-label=\"" + Escaped(chart.label) + "\">\n" + canvas.Content() +
           "</svg>\n";
}

}  // namespace vx3260
