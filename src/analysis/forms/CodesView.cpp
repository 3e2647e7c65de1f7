// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/CodesView.h"

#include "analysis/PlotCsv.h"
#include "analysis/PlotScale.h"
#include "analysis/UnitTexts.h"
#include "analysis/forms/BlockPlotForm.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "ui/PlotTickers.h"

namespace vx3260 {
namespace {

constexpr QLatin1String levelLayer("levels");

constexpr double keyMargin = 0.02;
constexpr double minReadingsShown = 4;
constexpr double minCodesShown = 4;

/// Readings farther apart than this, in pixels, are marked by dots.
constexpr double dotDistance = 6;
constexpr double dotSize = 4;

/// Readings closer than this, in pixels, form an area.
constexpr double areaDistance = 2;

}  // namespace

CodesView::CodesView(PlotView* view, const AnalysedBlock& block) : BlockView(view, block) {
    Draw();
    SetUpAxes();
    connect(view, &PlotView::beforeReplot, this, &CodesView::FollowView);
}

void CodesView::Draw() {
    PlotView* const view = View();
    codes_ = view->addGraph();
    codes_->setName(tr("Code"));
    for (std::size_t i = 0; i < Block().codes.size(); ++i) {
        codes_->addData(static_cast<double>(i + 1), Block().codes[i]);
    }
    view->addLayer(levelLayer);
    edges_ = AddLevels();
    levels_ = AddLevels();
    levels_.front()->setName(tr("Mean"));
    levels_.front()->addToLegend();
    if (levels_.size() > 1) {
        levels_.back()->setName(tr("Mean ± 1 sigma"));
        levels_.back()->addToLegend();
    }
    AddCursors(codes_);
    view->SetTheme([this](const PlotTheme& theme) { UseTheme(theme); });
}

void CodesView::SetUpAxes() {
    PlotView* const view = View();
    const AxisRange codes = CodeAxisOf(Block().analysis);
    const AxisRange readings =
        WithMargin({1, static_cast<double>(Block().codes.size())}, keyMargin, minReadingsShown);
    view->xAxis->setTicker(WholeNumberTicker(view->xAxis));
    view->yAxis->setTicker(WholeNumberTicker(view->yAxis));
    view->yAxis2->setTicker(VoltsTicker(view->yAxis2, Block().analysis.own));
    view->yAxis2->setVisible(true);
    view->xAxis->setLabel(tr("Reading"));
    view->yAxis->setLabel(tr("Code"));
    view->SetExtent({{readings.lower, readings.upper},
                     {codes.lower, codes.upper},
                     minReadingsShown,
                     minCodesShown});
}

void CodesView::UseTheme(const PlotTheme& theme) {
    constexpr double lineWidth = 2;
    constexpr double edgeWidth = 4;
    codes_->setPen(QPen(theme.data, theme.dataWidth));
    for (QCPGraph* edge : edges_) {
        edge->setPen(QPen(theme.background, edgeWidth));
    }
    for (QCPGraph* level : levels_) {
        const bool isMean = level == levels_.front();
        level->setPen(QPen(theme.reference, lineWidth, isMean ? Qt::SolidLine : Qt::DashLine));
    }
    Cursors()->UseTheme(theme);
}

std::vector<QCPGraph*> CodesView::AddLevels() {
    const auto [mean, sigma] = Block().analysis.exact;
    const std::vector<double> codes =
        sigma > 0 ? std::vector{mean, mean - sigma, mean + sigma} : std::vector{mean};
    std::vector<QCPGraph*> levels;
    for (const double code : codes) {
        QCPGraph* const level = View()->addGraph();
        level->removeFromLegend();
        level->setLayer(levelLayer);
        level->setAntialiased(false);
        level->addData(1, code);
        level->addData(static_cast<double>(Block().codes.size()), code);
        levels.push_back(level);
    }
    return levels;
}

void CodesView::FollowView() {
    PlotView* const view = View();
    view->yAxis2->setLabel(tr("Input (%1)").arg(VoltsUnitOf(view->yAxis2, Block().analysis.own)));
    const double pixelsApart = view->viewport().width() / view->xAxis->range().size();
    const bool dots = pixelsApart > dotDistance;
    codes_->setScatterStyle(dots ? QCPScatterStyle(QCPScatterStyle::ssDisc, dotSize)
                                 : QCPScatterStyle(QCPScatterStyle::ssNone));
    // On an area of similar brightness the lines of mean and sigma are visible only with an edge.
    for (QCPGraph* edge : edges_) {
        edge->setVisible(pixelsApart < areaDistance);
    }
    // Below codes that can be distinguished; equal codes lie on the line of their mean.
    const bool codesOnTop = dots || Block().analysis.exact.sigma == 0;
    view->moveLayer(view->layer(levelLayer), codes_->layer(),
                    codesOnTop ? PlotView::limBelow : PlotView::limAbove);
}

void CodesView::UseRate(std::optional<double> rate) {
    rate_ = rate;
    View()->xAxis2->setVisible(rate.has_value());
    if (rate) {
        View()->xAxis2->setTicker(SecondsTicker(View()->xAxis2, 1 / *rate));
        View()->xAxis2->setLabel(tr("Time (s)"));
    }
    View()->replot(PlotView::rpQueuedReplot);
    emit Changed();
}

QString CodesView::Summary() const {
    return rate_ ? QString() : tr("The rate of the readings is unknown: enter it for a time axis.");
}

double CodesView::CodeAt(PlotCursors::Name name) const {
    return Block().codes.at(static_cast<std::size_t>(Cursors()->PointOf(name)));
}

QString CodesView::TimeOf(int readings) const {
    return rate_ ? tr(", %1").arg(QString::fromStdString(SecondsText(readings / *rate_)))
                 : QString();
}

QString CodesView::TextAt(PlotCursors::Name name) const {
    const int point = Cursors()->PointOf(name);
    const double code = CodeAt(name);
    return tr("reading %1%2, %3, %4")
        .arg(point + 1)
        .arg(TimeOf(point), QString::fromStdString(CodeText(ToInt32(code))),
             CodeVoltsText(Block().analysis.own, code));
}

QString CodesView::Difference() const {
    const int readings = Cursors()->PointOf(PlotCursors::B) - Cursors()->PointOf(PlotCursors::A);
    const double codes = CodeAt(PlotCursors::B) - CodeAt(PlotCursors::A);
    return tr("B - A: %1%2, %3, %4")
        .arg(QString::fromStdString(CountText(readings, "reading")), TimeOf(readings),
             QString::fromStdString(FixedText(codes / Block().analysis.own.codeStep, 0) + " LSB"),
             DistanceText(codes * Block().analysis.own.lsbVolts));
}

std::string CodesView::Csv() const {
    return CodesCsv(Block());
}

}  // namespace vx3260

#include "moc_CodesView.cpp"
