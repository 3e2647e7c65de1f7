// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/PlotForm.h"

#include "analysis/PlotCsv.h"
#include "analysis/PlotScale.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/PlotTickers.h"
#include "ui_PlotForm.h"

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

PlotForm::PlotForm(Services& services, const AnalysedBlock& block, QWidget* parent)
    : BlockPlotForm(services, block, parent), ui_(std::make_unique<Ui::PlotForm>()) {
    ui_->setupUi(this);
    OpenAside(-1);
    SetUp({ui_->HeadingLabel, ui_->BoardLabel, ui_->Plot, ui_->Command1, ui_->Command2,
           ui_->Command3, ui_->Command4, ui_->Command5, ui_->SavedLabel},
          tr("Codes"));
    for (QLabel* label : {ui_->CursorALabel, ui_->CursorBLabel, ui_->DifferenceLabel}) {
        UseFixedFont(label);
    }
    Draw();
    SetUpAxes();
    ShowCursors();
    On(ui_->Plot, &PlotView::beforeReplot, &PlotForm::FollowView);
    On(cursors_, &PlotCursors::Changed, &PlotForm::ShowCursors);
}

PlotForm::~PlotForm() = default;

void PlotForm::Draw() {
    PlotView* const view = ui_->Plot;
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
    cursors_ = new PlotCursors(view, codes_);
    view->SetTheme([this](const PlotTheme& theme) { UseTheme(theme); });
}

void PlotForm::SetUpAxes() {
    PlotView* const view = ui_->Plot;
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

void PlotForm::UseTheme(const PlotTheme& theme) {
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
    cursors_->UseTheme(theme);
}

std::vector<QCPGraph*> PlotForm::AddLevels() {
    const auto [mean, sigma] = Block().analysis.exact;
    const std::vector<double> codes =
        sigma > 0 ? std::vector{mean, mean - sigma, mean + sigma} : std::vector{mean};
    std::vector<QCPGraph*> levels;
    for (const double code : codes) {
        QCPGraph* const level = ui_->Plot->addGraph();
        level->removeFromLegend();
        level->setLayer(levelLayer);
        level->setAntialiased(false);
        level->addData(1, code);
        level->addData(static_cast<double>(Block().codes.size()), code);
        levels.push_back(level);
    }
    return levels;
}

void PlotForm::FollowView() {
    PlotView* const view = ui_->Plot;
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

void PlotForm::ShowCursors() {
    const std::pair<QLabel*, PlotCursors::Name> labels[] = {{ui_->CursorALabel, PlotCursors::A},
                                                            {ui_->CursorBLabel, PlotCursors::B}};
    for (const auto& [label, name] : labels) {
        QFont font = label->font();
        font.setBold(name == cursors_->Chosen());
        label->setFont(font);
        label->setText(CursorText(name));
    }
    ui_->DifferenceLabel->setText(DifferenceText());
    Describe(FurtherLines());
}

QString PlotForm::CursorText(PlotCursors::Name name) const {
    const int point = cursors_->PointOf(name);
    const double code = Block().codes.at(static_cast<std::size_t>(point));
    return tr("%1: reading %2, %3, %4")
        .arg(name == PlotCursors::A ? QStringLiteral("A") : QStringLiteral("B"))
        .arg(point + 1)
        .arg(QString::fromStdString(CodeText(ToInt32(code))),
             CodeVoltsText(Block().analysis.own, code));
}

QString PlotForm::DifferenceText() const {
    const int a = cursors_->PointOf(PlotCursors::A);
    const int b = cursors_->PointOf(PlotCursors::B);
    const double codes = Block().codes.at(static_cast<std::size_t>(b)) -
                         Block().codes.at(static_cast<std::size_t>(a));
    const double volts = codes * Block().analysis.own.lsbVolts;
    return tr("B - A: %1, %2, %3")
        .arg(QString::fromStdString(CountText(b - a, "reading")),
             QString::fromStdString(FixedText(codes / Block().analysis.own.codeStep, 0) + " LSB"),
             DistanceText(volts));
}

std::string PlotForm::Csv() const {
    return CodesCsv(Block());
}

QStringList PlotForm::FurtherLines() const {
    return {CursorText(PlotCursors::A), CursorText(PlotCursors::B), DifferenceText()};
}

}  // namespace vx3260

#include "moc_PlotForm.cpp"
