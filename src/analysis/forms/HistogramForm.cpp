// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/HistogramForm.h"

#include "analysis/NoiseTexts.h"
#include "analysis/PlotCsv.h"
#include "analysis/PlotScale.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/PlotTickers.h"
#include "ui_HistogramForm.h"

namespace vx3260 {
namespace {

constexpr double curveSigmas = 5;
constexpr int curvePoints = 400;

constexpr double minCodeSpan = 4;
constexpr double minCountSpan = 2;

void FillBars(QCPBars* bars, const Histogram& histogram) {
    for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
        bars->addData(histogram.CentreOf(bin), static_cast<double>(histogram.counts[bin]));
    }
    bars->setWidthType(QCPBars::wtPlotCoords);
    bars->setWidth(static_cast<double>(histogram.binWidth));
}

void FillCurve(QCPGraph* curve, const NoiseAnalysis& analysis, std::int64_t binWidth) {
    const auto [mean, sigma] = analysis.exact;
    for (int i = 0; i <= curvePoints; ++i) {
        const double code = mean + sigma * curveSigmas * (2.0 * i / curvePoints - 1);
        curve->addData(code, NormalCount(code, analysis.exact, analysis.count, binWidth));
    }
}

}  // namespace

HistogramForm::HistogramForm(Services& services, const AnalysedBlock& block, QWidget* parent)
    : BlockPlotForm(services, block, parent),
      ui_(std::make_unique<Ui::HistogramForm>()),
      histogram_(ComputeHistogram(block.codes, MaxHistogramBins)) {
    ui_->setupUi(this);
    SetUp({ui_->HeadingLabel, ui_->BadgeLabel, ui_->Plot, ui_->Command1, ui_->Command2,
           ui_->Command3, ui_->Command4, ui_->Command5},
          tr("Histogram"));
    Draw();
    SetUpAxes();
    ShowFigures();
}

HistogramForm::~HistogramForm() = default;

void HistogramForm::Draw() {
    PlotView* const view = ui_->Plot;
    const NoiseAnalysis& analysis = Block().analysis;

    auto* const bars = new QCPBars(view->xAxis, view->yAxis);
    FillBars(bars, histogram_);
    bars->setName(OneCodeABin() ? tr("Readings per code")
                                : tr("Readings per bin of %1 codes").arg(histogram_.binWidth));
    QCPGraph* const curve = view->addGraph();
    curve->setName(tr("Normal curve of mean and sigma"));
    if (analysis.exact.sigma > 0) {
        FillCurve(curve, analysis, histogram_.binWidth);
    } else {
        curve->removeFromLegend();
    }
    QCPGraph* const mean = view->addGraph();
    mean->setName(tr("Mean"));
    mean->addData(analysis.exact.mean, 0);
    mean->addData(analysis.exact.mean, CountAxisOf(histogram_, analysis).upper);

    view->SetTheme([bars, curve, mean](const PlotTheme& theme) {
        constexpr double fill = 0.35;
        constexpr double lineWidth = 2;
        bars->setBrush(Mixed(theme.data, theme.background, fill));
        bars->setPen(theme.data);
        curve->setPen(QPen(theme.reference, lineWidth));
        mean->setPen(QPen(theme.text, 1, Qt::DashLine));
    });
}

void HistogramForm::SetUpAxes() {
    PlotView* const view = ui_->Plot;
    const AxisRange codes = BinAxisOf(histogram_, Block().analysis.exact);
    const AxisRange counts = CountAxisOf(histogram_, Block().analysis);
    view->xAxis->setTicker(WholeNumberTicker(view->xAxis));
    view->yAxis->setTicker(WholeNumberTicker(view->yAxis));
    view->xAxis->setLabel(tr("Code"));
    view->yAxis->setLabel(OneCodeABin() ? tr("Readings per code") : tr("Readings per bin"));
    view->SetExtent(
        {{codes.lower, codes.upper}, {counts.lower, counts.upper}, minCodeSpan, minCountSpan});
}

void HistogramForm::ShowFigures() {
    const NoiseAnalysis& analysis = Block().analysis;
    const ConversionConditions& conditions = analysis.conditions;
    const MeanAndSigma texts = MeanAndSigmaOf(analysis);
    const std::pair<QLabel*, QString> figures[] = {
        {ui_->CodesLabel, QString::number(analysis.count)},
        {ui_->RangeLabel, QString::fromStdString(RangeText(conditions))},
        {ui_->LSBLabel, DistanceText(conditions.lsbVolts)},
        {ui_->MeanLabelLSB, texts.mean},
        {ui_->MeanLabel, texts.meanVolts},
        {ui_->SigmaLabelLSB, texts.sigma},
        {ui_->SigmaLabel, texts.sigmaVolts},
        {ui_->BinLabel, QString::fromStdString(CountText(histogram_.binWidth, "code"))},
        {ui_->MaxLabel, QString::fromStdString(CodeText(analysis.statistics.maxCode))},
        {ui_->MinLabel, QString::fromStdString(CodeText(analysis.statistics.minCode))},
        {ui_->SpanLabel, QString::fromStdString(CountText(analysis.span, "code"))},
    };
    for (const auto& [label, text] : figures) {
        UseFixedFont(label);
        label->setText(text);
    }
}

std::string HistogramForm::Csv() const {
    return HistogramCsv(histogram_, Block().analysis.exact, Block().codes.size());
}

}  // namespace vx3260

#include "moc_HistogramForm.cpp"
