// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/PainterChart.h"

#include <QFontMetricsF>
#include <QPolygonF>

namespace vx3260 {
namespace {

QPointF PointOf(ChartPosition position) {
    return {position.x, position.y};
}

QPen PenOf(const ChartPen& pen) {
    constexpr double dashLength = 4;
    constexpr float dashOpacity = 0.6F;
    QColor colour(QLatin1String(pen.colour));
    QPen result;
    if (pen.dashed) {
        colour.setAlphaF(dashOpacity);
        result.setCapStyle(Qt::FlatCap);
        result.setDashPattern({dashLength / pen.width, dashLength / pen.width});
    }
    result.setColor(colour);
    result.setWidthF(pen.width);
    return result;
}

class PainterCanvas final : public ChartCanvas {
  public:
    explicit PainterCanvas(QPainter& painter) : painter_(painter) {
        QFont font = painter.font();
        font.setPixelSize(static_cast<int>(ChartFontSize));
        font.setHintingPreference(QFont::PreferNoHinting);
        painter.setFont(font);
    }

    void Line(ChartPosition from, ChartPosition to, const ChartPen& pen) override {
        painter_.setPen(PenOf(pen));
        painter_.drawLine(PointOf(from), PointOf(to));
    }

    void Polyline(const std::vector<ChartPosition>& points, const ChartPen& pen) override {
        QPolygonF polygon;
        for (const ChartPosition& point : points) {
            polygon.append(PointOf(point));
        }
        painter_.setPen(PenOf(pen));
        painter_.drawPolyline(polygon);
    }

    void Bar(ChartPosition corner, double width, double height, const char* colour) override {
        constexpr float opacity = 0.35F;
        QColor area((QLatin1String(colour)));
        area.setAlphaF(opacity);
        painter_.setPen(PenOf({colour}));
        painter_.setBrush(area);
        painter_.drawRect(QRectF(PointOf(corner), QSizeF(width, height)));
    }

    void Dot(ChartPosition centre, double radius, const char* colour) override {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(QColor(QLatin1String(colour)));
        painter_.drawEllipse(PointOf(centre), radius, radius);
    }

    void Text(ChartPosition at, ChartAnchor anchor, const std::string& text) override {
        const QString shown = QString::fromStdString(text);
        const double width = QFontMetricsF(painter_.font()).horizontalAdvance(shown);
        const double part = anchor == ChartAnchor::Start ? 0 : anchor == ChartAnchor::End ? 1 : 0.5;
        painter_.setPen(Qt::black);
        painter_.drawText(PointOf(at) - QPointF(width * part, 0), shown);
    }

    void UprightText(ChartPosition at, const std::string& text) override {
        constexpr double quarterTurn = -90;
        painter_.save();
        painter_.translate(PointOf(at));
        painter_.rotate(quarterTurn);
        Text({0, 0}, ChartAnchor::Middle, text);
        painter_.restore();
    }

  private:
    QPainter& painter_;
};

}  // namespace

void DrawChart(QPainter& painter, const QRectF& place, const Chart& chart) {
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(place.width() / ChartWidth, place.height() / ChartHeight);
    PainterCanvas canvas(painter);
    chart.draw(canvas);
    painter.restore();
}

}  // namespace vx3260
