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

NormalFigures FiguresOf(const NoiseAnalysis& analysis) {
    return {.readings = analysis.count,
            .step = analysis.own.codeStep,
            .exact = analysis.exact,
            .normal = analysis.normal,
            .shape = analysis.shape};
}

}  // namespace

HistogramForm::HistogramForm(Services& services, const AnalysedBlock& block, QWidget* parent)
    : BlockPlotForm(services, block, parent),
      ui_(std::make_unique<Ui::HistogramForm>()),
      histogram_(ComputeHistogram(block.codes, MaxHistogramBins, block.analysis.own.codeStep)) {
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
    const int step = histogram_.step;
    for (const std::int64_t width : BinWidthsFor(Block().codes, maxBinsToChoose, step)) {
        ui_->BinWidthBox->addItem(QString::fromStdString(CountText(width / step, "code")),
                                  QVariant::fromValue(width));
    }
    ui_->BinWidthBox->setCurrentIndex(
        ui_->BinWidthBox->findData(QVariant::fromValue(histogram_.binWidth)));
}

void HistogramForm::ChooseBinWidth() {
    histogram_ = CountCodes(Block().codes, ui_->BinWidthBox->currentData().value<std::int64_t>(),
                            histogram_.step);
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
    if (Block().analysis.normal.sigma == 0) {
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
    bars_->setName(
        OneCodeABin()
            ? tr("Readings per code")
            : tr("Readings per bin of %1 codes").arg(histogram_.binWidth / histogram_.step));
}

void HistogramForm::FillCurve() {
    const NoiseAnalysis& analysis = Block().analysis;
    const auto [mean, sigma] = analysis.normal;
    curve_->data()->clear();
    for (int i = 0; sigma > 0 && i <= curvePoints; ++i) {
        const double code = mean + sigma * curveSigmas * (2.0 * i / curvePoints - 1);
        curve_->addData(code,
                        NormalCount(code, analysis.normal, analysis.count, histogram_.binWidth));
    }
    mean_->data()->clear();
    mean_->addData(analysis.exact.mean, 0);
    mean_->addData(analysis.exact.mean, CountAxisOf(histogram_, analysis).upper);
}

void HistogramForm::ShowNoBin() {
    ui_->BinAtLabel->setText(tr("Point at a bin to read it out."));
}

/// The count beside what the normal curve has there.
void HistogramForm::ShowBinAt(double code) {
    const auto bin = static_cast<std::int64_t>(
        std::floor((code + histogram_.step / 2.0 - static_cast<double>(histogram_.firstCode)) /
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
        NormalCount(centre, analysis.normal, analysis.count, histogram_.binWidth);
    ui_->BinAtLabel->setText(
        tr("%1, %2: %3, %4 expected")
            .arg(codes, CodeVoltsText(analysis.own, centre),
                 QString::fromStdString(
                     CountText(static_cast<std::int64_t>(histogram_.counts[index]), "reading")),
                 analysis.normal.sigma > 0 ? QString::fromStdString(FixedText(expected, 1))
                                           : tr("none")));
}

void HistogramForm::SetUpAxes() {
    PlotView* const view = ui_->Plot;
    const AxisRange codes = BinAxisOf(histogram_, Block().analysis.normal);
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
    const NormalTexts texts = TextsOf(FiguresOf(analysis));
    const std::pair<QLabel*, QString> figures[] = {
        {ui_->CodesLabel, QString::number(analysis.count)},
        {ui_->RangeLabel, QString::fromStdString(RangeText(conditions))},
        {ui_->LSBLabel, DistanceText(conditions.StepVolts())},
        {ui_->MeanLabelLSB, QString::fromStdString(texts.mean)},
        {ui_->MeanLabel, CodeVoltsText(conditions, analysis.exact.mean)},
        {ui_->SigmaLabelLSB, QString::fromStdString(texts.sigma)},
        {ui_->SigmaLabel, DistanceText(analysis.normal.sigma * conditions.lsbVolts)},
        {ui_->MaxLabel, QString::fromStdString(CodeText(analysis.statistics.maxCode))},
        {ui_->MinLabel, QString::fromStdString(CodeText(analysis.statistics.minCode))},
        {ui_->SpanLabel, QString::number(analysis.span / conditions.codeStep) + tr(" LSB")},
    };
    for (const auto& [label, text] : figures) {
        UseFixedFont(label);
        label->setText(text);
    }
    ui_->ShapeLabel->setText(ShapeText());
}

QString HistogramForm::ShapeText() const {
    const NormalTexts texts = TextsOf(FiguresOf(Block().analysis));
    return tr("Skewness %1, excess kurtosis %2, normality %3")
        .arg(QString::fromStdString(texts.skewness), QString::fromStdString(texts.excessKurtosis),
             QString::fromStdString(texts.normality));
}

QStringList HistogramForm::FurtherLines() const {
    return {ShapeText()};
}

std::string HistogramForm::Csv() const {
    return HistogramCsv(histogram_, Block().analysis.normal, Block().codes.size());
}

}  // namespace vx3260

#include "moc_HistogramForm.cpp"
