// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PlotView.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace vx3260 {
namespace {

constexpr double panStep = 0.1;  ///< of the visible range
constexpr double zoomIn = 0.8;   ///< the part of the visible range that stays visible
constexpr double zoomOut = 1 / zoomIn;
constexpr double revealMargin = 0.05;  ///< of the visible range, beside the revealed key
constexpr int minRectangle = 4;        ///< pixels; a smaller one is a click
constexpr double exportScale = 2;      ///< pixels of a picture for one of the plot
constexpr QSize exportSize(64, 40);    ///< in heights of a line of text

/// What a key does with the axes.
struct KeyStep {
    Qt::Key key;
    bool shift;
    double panX;  ///< in parts of the visible range
    double panY;
    double zoomX;
    double zoomY;
};

constexpr KeyStep keySteps[] = {
    {Qt::Key_Left, false, -panStep, 0, 1, 1},
    {Qt::Key_Right, false, panStep, 0, 1, 1},
    {Qt::Key_Down, false, 0, -panStep, 1, 1},
    {Qt::Key_Up, false, 0, panStep, 1, 1},
    {Qt::Key_PageUp, false, -1, 0, 1, 1},
    {Qt::Key_PageDown, false, 1, 0, 1, 1},
    {Qt::Key_Left, true, 0, 0, zoomOut, 1},
    {Qt::Key_Right, true, 0, 0, zoomIn, 1},
    {Qt::Key_Down, true, 0, 0, 1, zoomOut},
    {Qt::Key_Up, true, 0, 0, 1, zoomIn},
    {Qt::Key_Minus, false, 0, 0, zoomOut, zoomOut},
    {Qt::Key_Plus, false, 0, 0, zoomIn, zoomIn},
    // Where the plus sign is over the equals sign.
    {Qt::Key_Equal, false, 0, 0, zoomIn, zoomIn},
    {Qt::Key_Plus, true, 0, 0, zoomIn, zoomIn},
};

PlotTheme ThemeOn(const QColor& background, const QColor& text) {
    constexpr int middle = 128;
    constexpr double gridPart = 0.2;
    constexpr double onePixelAtAnyScale = 0;
    const bool dark = background.lightness() < middle;
    return {.background = background,
            .text = text,
            .grid = Mixed(text, background, gridPart),
            .data = dark ? QColor(0x56, 0xB4, 0xE9) : QColor(0x00, 0x72, 0xB2),
            .reference = dark ? QColor(0xE6, 0x9F, 0x00) : QColor(0xD5, 0x5E, 0x00),
            .dataWidth = onePixelAtAnyScale};
}

PlotTheme ThemeOf(const QPalette& palette) {
    return ThemeOn(palette.color(QPalette::Base), palette.color(QPalette::Text));
}

PlotTheme ExportTheme() {
    PlotTheme theme = ThemeOn(Qt::white, QColor(0x20, 0x20, 0x20));
    theme.dataWidth = 1 / exportScale;
    return theme;
}

/// The part of `all` nearest to `range` and no smaller than `minSpan`.
QCPRange Inside(const QCPRange& range, const QCPRange& all, double minSpan) {
    const double size = std::min(std::max(range.size(), minSpan), all.size());
    const double lower =
        std::clamp(range.center() - size / 2, all.lower, std::max(all.lower, all.upper - size));
    return {lower, lower + size};
}

/// A place of an axis on a scale along which pixels are even: the logarithm on a logarithmic one.
double EvenPlace(const QCPAxis* axis, double place) {
    return axis->scaleType() == QCPAxis::stLogarithmic ? std::log10(place) : place;
}

QCPRange EvenRange(const QCPAxis* axis, const QCPRange& range) {
    return {EvenPlace(axis, range.lower), EvenPlace(axis, range.upper)};
}

void SetEvenRange(QCPAxis* axis, const QCPRange& range) {
    const bool logarithmic = axis->scaleType() == QCPAxis::stLogarithmic;
    axis->setRange(logarithmic ? QCPRange(std::pow(10, range.lower), std::pow(10, range.upper))
                               : range);
}

/// Moves the visible range by a part of it, then multiplies it about its middle.
void MoveAndScale(QCPAxis* axis, double part, double factor) {
    const QCPRange range = EvenRange(axis, axis->range());
    const double middle = range.center() + part * range.size();
    const double half = factor * range.size() / 2;
    SetEvenRange(axis, {middle - half, middle + half});
}

void Limit(QCPAxis* axis, const QCPRange& all, double minSpan) {
    const QSignalBlocker quiet(axis);
    SetEvenRange(axis, Inside(EvenRange(axis, axis->range()), EvenRange(axis, all), minSpan));
}

void SampleAdaptively(const QCustomPlot& plot, bool adaptively) {
    for (int i = 0; i < plot.graphCount(); ++i) {
        plot.graph(i)->setAdaptiveSampling(adaptively);
    }
}

}  // namespace

QColor Mixed(const QColor& one, const QColor& other, double part) {
    const auto mix = [part](int a, int b) { return qRound(part * a + (1 - part) * b); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()),
            mix(one.blue(), other.blue())};
}

PlotView::PlotView(QWidget* parent)
    : QCustomPlot(parent), extent_{xAxis->range(), yAxis->range(), 0, 0} {
    setFocusPolicy(Qt::StrongFocus);
    axisRect()->setMinimumMargins({8, 8, 8, 8});
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    for (QCPAxis* axis : {xAxis, yAxis}) {
        connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
                &PlotView::KeepInside);
    }
    SetUpLegend();
    UseFonts();
    UseTheme(ThemeOf(palette()));
}

/// Centred above the plot, where it covers nothing.
void PlotView::SetUpLegend() {
    constexpr double noMoreThanNeeded = 0.001;
    auto* const row = new QCPLayoutGrid;
    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, row);
    plotLayout()->setRowStretchFactor(0, noMoreThanNeeded);
    row->addElement(0, 0, new QCPLayoutElement(this));
    row->addElement(0, 1, legend);
    row->addElement(0, 2, new QCPLayoutElement(this));
    row->setColumnStretchFactor(1, noMoreThanNeeded);
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    legend->setBorderPen(Qt::NoPen);
    legend->setBrush(Qt::NoBrush);
    legend->setVisible(true);
}

void PlotView::HideLegend() {
    legend->setVisible(false);
    legend->setMargins({});
    setAutoAddPlottableToLegend(false);
}

void PlotView::SetTheme(std::function<void(const PlotTheme&)> useTheme) {
    useTheme_ = std::move(useTheme);
    UseTheme(ThemeOf(palette()));
}

void PlotView::SetExtent(const PlotExtent& extent) {
    extent_ = extent;
    for (QCPAxis* axis : {xAxis, yAxis, yAxis2}) {
        axis->setScaleType(extent.logarithmic ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
    }
    ShowAll();
}

void PlotView::ShowAll() {
    xAxis->setRange(extent_.keys);
    yAxis->setRange(extent_.values);
    replot(rpQueuedReplot);
}

void PlotView::Reveal(double key) {
    const QCPRange seen = EvenRange(xAxis, xAxis->range());
    const double place = EvenPlace(xAxis, key);
    const double margin = revealMargin * seen.size();
    if (place >= seen.lower + margin && place <= seen.upper - margin) {
        return;
    }
    const bool below = place < seen.lower + margin;
    const double distance = below ? place - margin - seen.lower : place + margin - seen.upper;
    SetEvenRange(xAxis, {seen.lower + distance, seen.upper + distance});
    replot(rpQueuedReplot);
}

void PlotView::KeepInside() {
    Limit(xAxis, extent_.keys, extent_.minKeys);
    if (extent_.valuesFromStart) {
        const QSignalBlocker quiet(yAxis);
        yAxis->moveRange(extent_.values.lower - yAxis->range().lower);
    }
    Limit(yAxis, extent_.values, extent_.minValues);
    yAxis2->setRange(yAxis->range());
    xAxis2->setRange(xAxis->range());
}

void PlotView::UseFonts() {
    for (QCPAxis* axis : {xAxis, yAxis, xAxis2, yAxis2}) {
        axis->setTickLabelFont(font());
        axis->setLabelFont(font());
    }
    legend->setFont(font());
    const int line = fontMetrics().height();
    legend->setIconSize(2 * line, line + fontMetrics().descent());
}

void PlotView::UseTheme(const PlotTheme& theme) {
    setBackground(theme.background);
    for (QCPAxis* axis : {xAxis, yAxis, xAxis2, yAxis2}) {
        for (const auto setPen :
             {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen}) {
            (axis->*setPen)(theme.text);
        }
        axis->setTickLabelColor(theme.text);
        axis->setLabelColor(theme.text);
        axis->grid()->setPen(theme.grid);
        axis->grid()->setZeroLinePen(Qt::NoPen);
    }
    legend->setTextColor(theme.text);
    QColor inside = theme.data;
    inside.setAlphaF(0.2F);
    selectionRect()->setPen(theme.data);
    selectionRect()->setBrush(inside);
    if (useTheme_) {
        useTheme_(theme);
    }
}

bool PlotView::HandleKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Home) {
        ShowAll();
        return true;
    }
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const auto* const step = std::find_if(
        std::begin(keySteps), std::end(keySteps),
        [&event, shift](const KeyStep& s) { return s.key == event.key() && s.shift == shift; });
    if (step == std::end(keySteps)) {
        return false;
    }
    MoveAndScale(xAxis, step->panX, step->zoomX);
    MoveAndScale(yAxis, step->panY, step->zoomY);
    return true;
}

void PlotView::keyPressEvent(QKeyEvent* event) {
    const bool other = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    if (other || !HandleKey(*event)) {
        QCustomPlot::keyPressEvent(event);
        return;
    }
    replot(rpQueuedReplot);
}

void PlotView::mousePressEvent(QMouseEvent* event) {
    const bool rectangle =
        event->button() == Qt::RightButton || event->modifiers().testFlag(Qt::ShiftModifier);
    setSelectionRectMode(rectangle ? QCP::srmZoom : QCP::srmNone);
    QCustomPlot::mousePressEvent(event);
}

void PlotView::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const bool moved = (at - mMousePressPos).manhattanLength() >= minRectangle;
    QCustomPlot::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && selectionRectMode() == QCP::srmNone && !moved &&
        axisRect()->rect().contains(at)) {
        emit Clicked(xAxis->pixelToCoord(at.x()));
    }
}

void PlotView::mouseMoveEvent(QMouseEvent* event) {
    QCustomPlot::mouseMoveEvent(event);
    const QPoint at = event->position().toPoint();
    if (axisRect()->rect().contains(at)) {
        emit PointedAt(xAxis->pixelToCoord(at.x()));
    } else {
        emit PointedAway();
    }
}

void PlotView::leaveEvent(QEvent* event) {
    QCustomPlot::leaveEvent(event);
    emit PointedAway();
}

void PlotView::wheelEvent(QWheelEvent* event) {
    constexpr double stepOfWheel = 120;
    const QPointF at = event->position();
    const QRect inside = axisRect()->rect();
    const double factor = std::pow(zoomIn, event->angleDelta().y() / stepOfWheel);
    if (at.y() <= inside.bottom()) {
        yAxis->scaleRange(factor, yAxis->pixelToCoord(at.y()));
    }
    if (at.x() >= inside.left() && at.x() <= inside.right()) {
        xAxis->scaleRange(factor, xAxis->pixelToCoord(at.x()));
    }
    event->accept();
    replot(rpQueuedReplot);
}

void PlotView::processRectZoom(QRect rect, QMouseEvent* /*event*/) {
    const QRect inside = rect.normalized() & axisRect()->rect();
    if (inside.width() >= minRectangle && inside.height() >= minRectangle) {
        axisRect()->zoom(QRectF(inside), {xAxis, yAxis});
    }
    replot(rpQueuedReplot);
}

void PlotView::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        UseTheme(ThemeOf(palette()));
        replot(rpQueuedRefresh);
    } else if (event->type() == QEvent::FontChange) {
        UseFonts();
        replot(rpQueuedRefresh);
    }
}

void PlotView::paintEvent(QPaintEvent* event) {
    QCustomPlot::paintEvent(event);
    if (hasFocus()) {
        constexpr int frameWidth = 2;
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::Highlight), frameWidth));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void PlotView::AddTextOnTop(const QString& text, const QFont& textFont, const QColor& colour) {
    auto* const element = new QCPTextElement(this, text, textFont);
    element->setTextColor(colour);
    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, element);
}

void PlotView::Export(const QStringList& lines, const std::function<void(QSize)>& draw) {
    replot();  // updates what depends on the visible range
    SampleAdaptively(*this, false);
    const PlotTheme theme = ExportTheme();
    UseTheme(theme);
    QFont titleFont = font();
    titleFont.setBold(true);
    AddTextOnTop(lines.mid(1).join(QLatin1Char('\n')), font(), theme.text);
    AddTextOnTop(lines.value(0), titleFont, theme.text);

    draw(exportSize * fontMetrics().height());

    for (const int row : {0, 1}) {
        plotLayout()->remove(plotLayout()->element(row, 0));
    }
    plotLayout()->simplify();
    SampleAdaptively(*this, true);
    UseTheme(ThemeOf(palette()));
    replot();
}

QImage PlotView::Picture(const QStringList& lines) {
    QImage picture;
    Export(lines, [this, &picture](QSize size) {
        picture = toPixmap(size.width(), size.height(), exportScale).toImage();
    });
    return picture;
}

QByteArray PlotView::Png(const QStringList& lines) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    Picture(lines).save(&buffer, "PNG");
    return bytes;
}

QByteArray PlotView::Pdf(const QStringList& lines) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(lines.value(0));
    // At the screen's resolution texts have the size that the layout reserves.
    writer.setResolution(logicalDpiX());
    Export(lines, [&](QSize size) {
        constexpr double pointsPerInch = 72;
        writer.setPageSize(QPageSize(QSizeF(size) * pointsPerInch / logicalDpiX(), QPageSize::Point,
                                     {}, QPageSize::ExactMatch));
        writer.setPageMargins({});
        QCPPainter painter;
        painter.begin(&writer);
        painter.setMode(QCPPainter::pmVectorized);
        toPainter(&painter, size.width(), size.height());
        painter.end();
    });
    return bytes;
}

}  // namespace vx3260

#include "moc_PlotView.cpp"
