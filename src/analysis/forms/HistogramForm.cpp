// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/HistogramForm.h"

#include <cmath>

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

/// Of the widths that can be chosen, the smallest gives at most so many bins.
constexpr std::size_t maxBinsToChoose = 5000;

constexpr double minCodeSpan = 4;
constexpr double minCountSpan = 2;

}  // namespace

HistogramForm::HistogramForm(Services& services, const AnalysedBlock& block, QWidget* parent)
    : BlockPlotForm(services, block, parent),
      ui_(std::make_unique<Ui::HistogramForm>()),
      histogram_(ComputeHistogram(block.codes, MaxHistogramBins)) {
    ui_->setupUi(this);
    OpenAside(1);
    SetUp({ui_->HeadingLabel, ui_->BoardLabel, ui_->Plot, ui_->Command1, ui_->Command2,
           ui_->Command3, ui_->Command4, ui_->Command5, ui_->SavedLabel},
          tr("Histogram"));
    Draw();
    OfferBinWidths();
    ChooseBinWidth();
    On(ui_->BinWidthBox, &QComboBox::currentIndexChanged, &HistogramForm::ChooseBinWidth);
    connect(ui_->Plot, &PlotView::PointedAt, this, &HistogramForm::ShowBinAt);
    connect(ui_->Plot, &PlotView::PointedAway, this, &HistogramForm::ShowNoBin);
    ShowNoBin();
}

HistogramForm::~HistogramForm() = default;

/// Begins with the width that suits the drawing.
void HistogramForm::OfferBinWidths() {
    for (const std::int64_t width : BinWidthsFor(Block().codes, maxBinsToChoose)) {
        ui_->BinWidthBox->addItem(QString::fromStdString(CountText(width, "code")),
                                  QVariant::fromValue(width));
    }
    ui_->BinWidthBox->setCurrentIndex(
        ui_->BinWidthBox->findData(QVariant::fromValue(histogram_.binWidth)));
}

void HistogramForm::ChooseBinWidth() {
    histogram_ = CountCodes(Block().codes, ui_->BinWidthBox->currentData().value<std::int64_t>());
    FillBars();
    FillCurve();
    SetUpAxes();
    ShowFigures();
}

void HistogramForm::Draw() {
    PlotView* const view = ui_->Plot;
    bars_ = new QCPBars(view->xAxis, view->yAxis);
    bars_->setWidthType(QCPBars::wtPlotCoords);
    curve_ = view->addGraph();
    curve_->setName(tr("Normal curve of mean and sigma"));
    if (Block().analysis.exact.sigma == 0) {
        curve_->removeFromLegend();
    }
    mean_ = view->addGraph();
    mean_->setName(tr("Mean"));
    view->SetTheme([this](const PlotTheme& theme) {
        constexpr double fill = 0.35;
        constexpr double lineWidth = 2;
        bars_->setBrush(Mixed(theme.data, theme.background, fill));
        bars_->setPen(theme.data);
        curve_->setPen(QPen(theme.reference, lineWidth));
        mean_->setPen(QPen(theme.text, 1, Qt::DashLine));
    });
}

void HistogramForm::FillBars() {
    bars_->data()->clear();
    for (std::size_t bin = 0; bin < histogram_.counts.size(); ++bin) {
        bars_->addData(histogram_.CentreOf(bin), static_cast<double>(histogram_.counts[bin]));
    }
    bars_->setWidth(static_cast<double>(histogram_.binWidth));
    bars_->setName(OneCodeABin() ? tr("Readings per code")
                                 : tr("Readings per bin of %1 codes").arg(histogram_.binWidth));
}

void HistogramForm::FillCurve() {
    const NoiseAnalysis& analysis = Block().analysis;
    const auto [mean, sigma] = analysis.exact;
    curve_->data()->clear();
    for (int i = 0; sigma > 0 && i <= curvePoints; ++i) {
        const double code = mean + sigma * curveSigmas * (2.0 * i / curvePoints - 1);
        curve_->addData(code,
                        NormalCount(code, analysis.exact, analysis.count, histogram_.binWidth));
    }
    mean_->data()->clear();
    mean_->addData(mean, 0);
    mean_->addData(mean, CountAxisOf(histogram_, analysis).upper);
}

void HistogramForm::ShowNoBin() {
    ui_->BinAtLabel->setText(tr("Point at a bin to read it out."));
}

/// The count beside what the normal curve has there.
void HistogramForm::ShowBinAt(double code) {
    const auto bin = static_cast<std::int64_t>(
        std::floor((std::floor(code + 0.5) - static_cast<double>(histogram_.firstCode)) /
                   static_cast<double>(histogram_.binWidth)));
    if (bin < 0 || bin >= static_cast<std::int64_t>(histogram_.counts.size())) {
        ShowNoBin();
        return;
    }
    const auto index = static_cast<std::size_t>(bin);
    const NoiseAnalysis& analysis = Block().analysis;
    const double centre = histogram_.CentreOf(index);
    const auto text = [](std::int64_t c) {
        return QString::fromStdString(CodeText(static_cast<std::int32_t>(c)));
    };
    const QString codes = OneCodeABin() ? tr("Code %1").arg(text(histogram_.FirstCodeOf(index)))
                                        : tr("Codes %1 to %2")
                                              .arg(text(histogram_.FirstCodeOf(index)),
                                                   text(histogram_.LastCodeOf(index)));
    const double expected =
        NormalCount(centre, analysis.exact, analysis.count, histogram_.binWidth);
    ui_->BinAtLabel->setText(
        tr("%1, %2: %3, %4 expected")
            .arg(codes, CodeVoltsText(analysis.own, centre),
                 QString::fromStdString(
                     CountText(static_cast<std::int64_t>(histogram_.counts[index]), "reading")),
                 analysis.exact.sigma > 0 ? QString::fromStdString(FixedText(expected, 1))
                                          : tr("none")));
}

void HistogramForm::SetUpAxes() {
    PlotView* const view = ui_->Plot;
    const AxisRange codes = BinAxisOf(histogram_, Block().analysis.exact);
    const AxisRange counts = CountAxisOf(histogram_, Block().analysis);
    view->xAxis->setTicker(WholeNumberTicker(view->xAxis));
    view->yAxis->setTicker(WholeNumberTicker(view->yAxis));
    view->xAxis->setLabel(tr("Code"));
    view->yAxis->setLabel(OneCodeABin() ? tr("Readings per code") : tr("Readings per bin"));
    view->SetExtent({{codes.lower, codes.upper},
                     {counts.lower, counts.upper},
                     minCodeSpan,
                     minCountSpan,
                     true});
}

void HistogramForm::ShowFigures() {
    const NoiseAnalysis& analysis = Block().analysis;
    const ConversionConditions& conditions = analysis.own;
    const MeanAndSigma texts = MeanAndSigmaOf(analysis);
    const std::pair<QLabel*, QString> figures[] = {
        {ui_->CodesLabel, QString::number(analysis.count)},
        {ui_->RangeLabel, QString::fromStdString(RangeText(conditions))},
        {ui_->LSBLabel, DistanceText(conditions.lsbVolts)},
        {ui_->MeanLabelLSB, texts.mean},
        {ui_->MeanLabel, texts.meanVolts},
        {ui_->SigmaLabelLSB, texts.sigma},
        {ui_->SigmaLabel, texts.sigmaVolts},
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
