// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/StabilityView.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "analysis/PlotCsv.h"
#include "analysis/UnitTexts.h"
#include "analysis/forms/LogPlot.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr double pointSize = 6;

/// More points than these are a line, and their limits a band.
constexpr std::size_t maxDots = 60;

/// Of the data's colour in that of their limits.
constexpr double barPart = 0.7;
constexpr double bandPart = 0.25;

}  // namespace

StabilityView::StabilityView(PlotView* view, const AnalysedBlock& block)
    : BlockView(view, block),
      graph_(view->addGraph()),
      whiteNoise_(view->addGraph()),
      bars_(new QCPErrorBars(view->xAxis, view->yAxis)),
      low_(view->addGraph()),
      high_(view->addGraph()) {
    graph_->setName(tr("Allan deviation"));
    whiteNoise_->setName(tr("White noise: 1 / √time"));
    whiteNoise_->setLayer(QStringLiteral("grid"));
    bars_->setName(tr("95 % confidence"));
    bars_->setDataPlottable(graph_);
    high_->setName(bars_->name());
    high_->setChannelFillGraph(low_);
    for (QCPGraph* limit : {low_, high_}) {
        limit->setLayer(QStringLiteral("background"));
        limit->removeFromLegend();
    }
    AddCursors(graph_);
    view->SetTheme([this](const PlotTheme& theme) {
        graph_->setPen(QPen(theme.data, theme.dataWidth));
        bars_->setPen(QPen(Mixed(theme.data, theme.background, barPart)));
        const QColor band = Mixed(theme.data, theme.background, bandPart);
        low_->setPen(QPen(band));
        high_->setPen(QPen(band));
        high_->setBrush(band);
        whiteNoise_->setPen(QPen(theme.reference, 2, Qt::DashLine));
        Cursors()->UseTheme(theme);
    });
    SetUpVoltsAndLsb(view, Block().analysis.own);
    view->yAxis->setLabel(tr("Allan deviation (V)"));
    view->yAxis2->setLabel(tr("LSB"));
    Compute();
    Cursors()->Set(0, graph_->dataCount() - 1);
}

void StabilityView::UseRate(std::optional<double> rate) {
    const bool same = rate == rate_;
    rate_ = rate;
    Draw();
    if (!same) {
        Cursors()->Set(0, graph_->dataCount() - 1);
    }
    emit Changed();
}

void StabilityView::UseFactors(AveragingFactors factors) {
    factors_ = factors;
    Compute();
}

void StabilityView::Compute() {
    points_ = AllanDeviation(Block().codes, factors_);
    drawn_.clear();
    std::copy_if(points_.begin(), points_.end(), std::back_inserter(drawn_),
                 [](const AllanPoint& point) { return point.deviation > 0; });
    Draw();
    Cursors()->FollowGraph();
    emit Changed();
}

void StabilityView::Draw() {
    const double volts = Block().analysis.own.lsbVolts;
    graph_->data()->clear();
    bars_->data()->clear();
    low_->data()->clear();
    high_->data()->clear();
    for (const AllanPoint& point : drawn_) {
        graph_->addData(TimeOf(point.factor), point.deviation * volts);
        bars_->addData((point.deviation - point.low) * volts,
                       (point.high - point.deviation) * volts);
        low_->addData(TimeOf(point.factor), point.low * volts);
        high_->addData(TimeOf(point.factor), point.high * volts);
    }
    ShowBarsOrBand();
    DrawWhiteNoise();
    View()->xAxis->setLabel(rate_ ? tr("Averaging time (s)") : tr("Readings averaged"));
}

void StabilityView::ShowBarsOrBand() {
    const bool bars = drawn_.size() <= maxDots;
    graph_->setScatterStyle(bars ? QCPScatterStyle(QCPScatterStyle::ssDisc, pointSize)
                                 : QCPScatterStyle(QCPScatterStyle::ssNone));
    const std::pair<QCPAbstractPlottable*, bool> limits[] = {{bars_, bars}, {high_, !bars}};
    for (const auto& [plottable, shown] : limits) {
        plottable->removeFromLegend();
        if (shown) {
            plottable->addToLegend();
        }
    }
    bars_->setVisible(bars);
    low_->setVisible(!bars);
    high_->setVisible(!bars);
}

void StabilityView::DrawWhiteNoise() {
    const double volts = Block().analysis.own.lsbVolts;
    LogExtent extent = ExtentOf(graph_, Block().analysis.own.StepVolts());
    whiteNoise_->data()->clear();
    // Without a deviation of single readings there is nothing to begin with.
    if (!drawn_.empty() && drawn_.front().factor == 1) {
        for (const AllanPoint& point : {points_.front(), points_.back()}) {
            const double white = WhiteNoiseDeviation(points_, point.factor) * volts;
            whiteNoise_->addData(TimeOf(point.factor), white);
            extent.values.lower = std::min(extent.values.lower, white);
        }
    }
    for (const AllanPoint& point : drawn_) {
        extent.values.lower = std::min(extent.values.lower, point.low * volts);
        extent.values.upper = std::max(extent.values.upper, point.high * volts);
    }
    ShowExtent(View(), extent);
}

double StabilityView::TimeOf(std::size_t factor) const {
    return static_cast<double>(factor) / rate_.value_or(1);
}

QString StabilityView::TimeText(std::size_t factor) const {
    const std::string readings = CountText(static_cast<std::int64_t>(factor), "reading");
    return QString::fromStdString(rate_ ? SecondsText(TimeOf(factor)) + " (" + readings + ")"
                                        : readings);
}

const AllanPoint& StabilityView::PointOf(PlotCursors::Name name) const {
    return drawn_.at(static_cast<std::size_t>(Cursors()->PointOf(name)));
}

QString StabilityView::Summary() const {
    if (drawn_.empty()) {
        return tr("The codes do not vary: the deviation is 0 or not defined.");
    }
    const AllanPoint& minimum = *std::min_element(
        drawn_.begin(), drawn_.end(),
        [](const AllanPoint& a, const AllanPoint& b) { return a.deviation < b.deviation; });
    const CodeScale scale = CodeScaleOf(Block().analysis.own);
    return tr("Minimum %1, %2, over %3%4")
        .arg(QString::fromStdString(RmsText(minimum.deviation * scale.volts)),
             QString::fromStdString(LsbText(minimum.deviation * scale.lsb)),
             TimeText(minimum.factor),
             rate_ ? QString() : tr("; the rate of the readings is unknown: enter it for seconds"));
}

QString StabilityView::TextAt(PlotCursors::Name name) const {
    const AllanPoint& point = PointOf(name);
    const CodeScale scale = CodeScaleOf(Block().analysis.own);
    const auto volts = [&scale](double codes) {
        return QString::fromStdString(RmsText(codes * scale.volts));
    };
    return tr("%1: %2 (%3 to %4), %5")
        .arg(TimeText(point.factor), volts(point.deviation), volts(point.low), volts(point.high),
             QString::fromStdString(LsbText(point.deviation * scale.lsb)));
}

QString StabilityView::Difference() const {
    const AllanPoint& a = PointOf(PlotCursors::A);
    const AllanPoint& b = PointOf(PlotCursors::B);
    const double times = static_cast<double>(b.factor) / static_cast<double>(a.factor);
    return tr("B / A: %1 over %2 times the time; of white noise it is %3")
        .arg(QString::fromStdString(RoundedText(b.deviation / a.deviation)),
             QString::fromStdString(RoundedText(times)),
             QString::fromStdString(RoundedText(1 / std::sqrt(times))));
}

std::string StabilityView::Csv() const {
    return StabilityCsv(points_, rate_.value_or(1), CodeScaleOf(Block().analysis.own),
                        rate_ ? TimeUnit::Second : TimeUnit::Reading);
}

}  // namespace vx3260

#include "moc_StabilityView.cpp"
