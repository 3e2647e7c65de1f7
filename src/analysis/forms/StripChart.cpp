// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/StripChart.h"

#include <QElapsedTimer>
#include <algorithm>
#include <limits>

#include "analysis/WindowTexts.h"
#include "ui/PlotTickers.h"
#include "ui_StripChart.h"

namespace vx3260 {
namespace {

constexpr std::chrono::nanoseconds shortestFrame = std::chrono::milliseconds(33);
constexpr std::chrono::nanoseconds longestFrame = std::chrono::seconds(1);

/// The distance of two frames, in times that one takes: drawing takes 0.7 % of a core at most, and
/// what the window system does then about as much again. The dual display has two charts.
constexpr int framesApart = 150;

/// Height of the plot and width of the chart, in heights of a line of text.
constexpr int minLines = 8;
constexpr int usualLines = 12;
constexpr int widthInLines = 22;

constexpr QLatin1String codesLayer("codes");

/// The time axis is in seconds up to this span, in minutes beyond it.
constexpr CodeWindow::Duration longestInSeconds = std::chrono::minutes(2);

/// Codes farther apart than this, in pixels, are marked by dots.
constexpr double chartDotDistance = 6;
constexpr double chartDotSize = 4;

struct AxisUnit {
    CodeWindow::Duration unit;
    QString axisLabel;

    double NumberOf(CodeWindow::Duration time) const {
        return std::chrono::duration<double>(time) / std::chrono::duration<double>(unit);
    }
};

AxisUnit AxisUnitOf(CodeWindow::Duration span) {
    if (span > longestInSeconds) {
        return {std::chrono::minutes(1), StripChart::tr("Time (min)")};
    }
    return {std::chrono::seconds(1), StripChart::tr("Time (s)")};
}

}  // namespace

StripChart::StripChart(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::StripChart>()), codes_(std::chrono::seconds(10)) {
    ui_->setupUi(this);
    plot_ = ui_->Plot;
    // It moves by itself; the wheel scrolls the form.
    plot_->setAttribute(Qt::WA_TransparentForMouseEvents);
    plot_->setMinimumHeight(minLines * fontMetrics().height());
    plot_->HideLegend();
    UseSteadyWidths();
    // While the axes stand still, only the codes are drawn anew.
    plot_->addLayer(codesLayer);
    plot_->layer(codesLayer)->setMode(QCPLayer::lmBuffered);
    plot_->setCurrentLayer(codesLayer);
    graph_ = plot_->addGraph();
    mean_ = plot_->addGraph();
    mean_->setAntialiased(false);
    plot_->SetTheme([this](const PlotTheme& theme) { UseTheme(theme); });
    SetUpAxes();
    next_.setSingleShot(true);
    next_.setTimerType(Qt::PreciseTimer);
    connect(&next_, &QTimer::timeout, this, &StripChart::Draw);
}

StripChart::~StripChart() = default;

QSize StripChart::sizeHint() const {
    const int line = fontMetrics().height();
    const QSize smallest = minimumSizeHint();
    return {std::max(smallest.width(), widthInLines * line),
            smallest.height() + (usualLines - minLines) * line};
}

/// The columns keep their widths while the figures change.
void StripChart::UseSteadyWidths() {
    const int code = fontMetrics().horizontalAdvance(QStringLiteral("16777215.0"));
    const int volts = fontMetrics().horizontalAdvance(QStringLiteral("-0.000000000 V"));
    for (QLabel* label : {ui_->MeanLabel, ui_->SigmaLabel, ui_->PeakToPeakLabel}) {
        label->setMinimumWidth(code);
    }
    for (QLabel* label : {ui_->MeanVoltsLabel, ui_->SigmaVoltsLabel, ui_->PeakToPeakVoltsLabel}) {
        label->setMinimumWidth(volts);
    }
}

void StripChart::SetUpAxes() {
    const AxisUnit unit = AxisUnitOf(codes_.Span());
    plot_->xAxis->setTicker(WholeNumberTicker(plot_->xAxis));
    plot_->yAxis->setTicker(WholeNumberTicker(plot_->yAxis));
    plot_->xAxis->setLabel(unit.axisLabel);
    plot_->yAxis->setLabel(tr("Code"));
    range_.reset();
}

void StripChart::UseTheme(const PlotTheme& theme) {
    constexpr double lineWidth = 2;
    graph_->setPen(QPen(theme.data, theme.dataWidth));
    mean_->setPen(QPen(theme.reference, lineWidth));
}

void StripChart::SetConditions(const ConversionConditions& conditions) {
    conditions_ = conditions;
    plot_->yAxis2->setTicker(VoltsTicker(plot_->yAxis2, conditions));
    plot_->yAxis2->setVisible(true);
    range_.reset();
    DrawSoon();
}

void StripChart::SetSpan(CodeWindow::Duration span) {
    codes_.SetSpan(span);
    if (paused_) {
        paused_->SetSpan(span);
    }
    SetUpAxes();
    DrawSoon();
}

void StripChart::Add(CodeWindow::Duration time, std::int32_t code) {
    codes_.Add(time, code);
    if (!paused_) {
        DrawSoon();
    }
}

void StripChart::Clear() {
    codes_.Clear();
    if (paused_) {
        paused_->Clear();
    }
    DrawSoon();
}

void StripChart::SetPaused(bool paused) {
    if (paused) {
        paused_ = codes_;
    } else {
        paused_.reset();
    }
    DrawSoon();
}

void StripChart::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    DrawSoon();
}

/// Codes that come before are drawn with this one.
void StripChart::DrawSoon() {
    if (isVisible() && !next_.isActive()) {
        next_.start();
    }
}

void StripChart::Draw() {
    QElapsedTimer drawing;
    drawing.start();
    ShowFigures();
    const bool axesMoved = FollowRange();
    SetCodes();
    std::chrono::duration<double, std::milli> rest{};
    if (axesMoved) {
        plot_->replot(PlotView::rpQueuedReplot);
        // The replot follows; the one before is its measure.
        rest = decltype(rest)(plot_->replotTime());
    } else {
        plot_->layer(codesLayer)->replot();
    }
    const auto frame = std::chrono::nanoseconds(drawing.nsecsElapsed()) +
                       std::chrono::ceil<std::chrono::nanoseconds>(rest);
    const std::chrono::nanoseconds distance =
        std::clamp(framesApart * frame, shortestFrame, longestFrame);
    next_.setInterval(std::chrono::ceil<std::chrono::milliseconds>(distance));
}

/// The axis stays as long as the codes fill it to a fair part, so that it seldom moves.
bool StripChart::FollowRange() {
    constexpr double marginAround = 0.1;
    constexpr double fairPart = 0.3;
    constexpr double minSteps = 4;
    const std::optional<WindowFigures> figures = Shown().Figures();
    if (!conditions_) {
        return false;
    }
    const AxisRange seen = figures
                               ? AxisRange{static_cast<double>(figures->minCode),
                                           static_cast<double>(figures->maxCode)}
                               : AxisRange{0, static_cast<double>(conditions_->LargestResult())};
    const AxisRange fitting = WithMargin(seen, marginAround, minSteps * conditions_->codeStep);
    const bool fits = range_ && seen.lower >= range_->lower && seen.upper <= range_->upper &&
                      fitting.Span() >= fairPart * range_->Span();
    if (fits) {
        return false;
    }
    range_ = fitting;
    const QCPRange keys(-AxisUnitOf(Shown().Span()).NumberOf(Shown().Span()), 0);
    plot_->SetExtent({keys, {fitting.lower, fitting.upper}, keys.size(), fitting.Span()});
    plot_->yAxis->setLabel(
        tr("%1 ADC Code").arg(QString::fromUtf8(TraitsOf(conditions_->converter).name)));
    plot_->yAxis2->setLabel(tr("Input (%1)").arg(VoltsUnitOf(plot_->yAxis2, *conditions_)));
    return true;
}

void StripChart::SetCodes() {
    const TimedCodes codes = Shown().Codes();
    const AxisUnit unit = AxisUnitOf(Shown().Span());
    QVector<QCPGraphData> points;
    points.reserve(static_cast<qsizetype>(codes.size()) + 1);
    for (const TimedCode& timed : codes) {
        const double key = unit.NumberOf(timed.time - codes.back().time);
        if (timed.first && !points.isEmpty()) {
            points.append({key, std::numeric_limits<double>::quiet_NaN()});
        }
        points.append({key, static_cast<double>(timed.code)});
    }
    const bool dots =
        chartDotDistance * static_cast<double>(points.size()) < plot_->viewport().width();
    graph_->setScatterStyle(dots ? QCPScatterStyle(QCPScatterStyle::ssDisc, chartDotSize)
                                 : QCPScatterStyle(QCPScatterStyle::ssNone));
    graph_->data()->set(points, true);
    mean_->data()->clear();
    if (const std::optional<WindowFigures> figures = Shown().Figures()) {
        mean_->addData(plot_->xAxis->range().lower, figures->mean);
        mean_->addData(0, figures->mean);
    }
}

void StripChart::ShowFigures() {
    const std::optional<WindowFigures> figures = Shown().Figures();
    const WindowTexts texts =
        conditions_ && figures ? vx3260::TextsOf(*figures, *conditions_) : WindowTexts{};
    const std::pair<QLabel*, const std::string*> labels[] = {
        {ui_->MeanLabel, &texts.mean},
        {ui_->MeanVoltsLabel, &texts.meanVolts},
        {ui_->SigmaLabel, &texts.sigma},
        {ui_->SigmaVoltsLabel, &texts.sigmaVolts},
        {ui_->PeakToPeakLabel, &texts.peakToPeak},
        {ui_->PeakToPeakVoltsLabel, &texts.peakToPeakVolts},
    };
    for (const auto& [label, text] : labels) {
        label->setText(QString::fromStdString(*text));
    }
}

}  // namespace vx3260

#include "moc_StripChart.cpp"
