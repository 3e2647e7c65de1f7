// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/PlotForm.h"

#include "analysis/Rate.h"
#include "analysis/forms/CodesView.h"
#include "analysis/forms/SpectrumView.h"
#include "analysis/forms/StabilityView.h"
#include "numbers/Conversions.h"
#include "numbers/RuntimeError.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui_PlotForm.h"

namespace vx3260 {
namespace {

constexpr std::size_t minSegmentOffered = 8;

/// More than a crystal keeps.
constexpr int rateDigits = 8;

/// Nothing where the text is not a rate.
std::optional<double> RateOf(const QString& text) {
    try {
        const double rate = TextToDouble(text.toStdString());
        return IsRate(rate) ? std::optional(rate) : std::nullopt;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

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
    spectrum_ = new SpectrumView(ui_->SpectrumPlot, block);
    stability_ = new StabilityView(ui_->StabilityPlot, block);
    views_ = {new CodesView(ui_->Plot, block), spectrum_, stability_};
    for (BlockView* view : views_) {
        view->setParent(this);
        ui_->ViewBox->addItem(view->Subject());
        On(view, &BlockView::Changed, &PlotForm::ShowTexts);
    }
    OfferChoices();
    ChooseRate();
    ChooseView();
}

PlotForm::~PlotForm() = default;

void PlotForm::OfferChoices() {
    const std::size_t readings = Block().codes.size();
    const std::size_t fitting = DefaultSegmentLength(readings);
    for (std::size_t length = minSegmentOffered; length <= readings; length *= 2) {
        ui_->SegmentBox->addItem(tr("%1 readings").arg(length), QVariant::fromValue(length));
    }
    ui_->SegmentBox->setCurrentIndex(ui_->SegmentBox->findData(QVariant::fromValue(fitting)));
    if (const std::optional<double> interval = Block().Interval()) {
        ui_->RateEdit->setText(QString::number(1 / *interval, 'g', rateDigits));
    }
    SelectTextOnFocus(ui_->RateEdit);
    On(ui_->ViewBox, &QComboBox::currentIndexChanged, &PlotForm::ChooseView);
    On(ui_->RateEdit, &QLineEdit::textChanged, &PlotForm::ChooseRate);
    On(ui_->SegmentBox, &QComboBox::currentIndexChanged, &PlotForm::ChooseSegments);
    On(ui_->TrendBox, &QComboBox::currentIndexChanged, &PlotForm::ChooseSegments);
    On(ui_->FactorsBox, &QComboBox::currentIndexChanged, &PlotForm::ChooseFactors);
}

BlockView& PlotForm::View() const {
    return *views_.at(static_cast<std::size_t>(ui_->ViewBox->currentIndex()));
}

void PlotForm::ChooseView() {
    const bool spectrum = &View() == spectrum_;
    const bool stability = &View() == stability_;
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->SegmentLabel, ui_->SegmentBox,
                                                            ui_->TrendLabel, ui_->TrendBox}) {
        control->setVisible(spectrum);
    }
    ui_->FactorsLabel->setVisible(stability);
    ui_->FactorsBox->setVisible(stability);
    ui_->Views->setCurrentWidget(View().View());
    UseView(View().View(), View().Subject());
    ShowTexts();
}

void PlotForm::ChooseRate() {
    const std::optional<double> rate = RateOf(ui_->RateEdit->text());
    for (BlockView* view : views_) {
        view->UseRate(rate);
    }
}

void PlotForm::ChooseSegments() {
    spectrum_->UseSegments(ui_->SegmentBox->currentData().value<std::size_t>(),
                           ui_->TrendBox->currentIndex() == 0 ? Trend::Mean : Trend::Linear);
}

void PlotForm::ChooseFactors() {
    stability_->UseFactors(static_cast<AveragingFactors>(ui_->FactorsBox->currentIndex()));
}

void PlotForm::ShowTexts() {
    const std::pair<QLabel*, PlotCursors::Name> labels[] = {{ui_->CursorALabel, PlotCursors::A},
                                                            {ui_->CursorBLabel, PlotCursors::B}};
    for (const auto& [label, name] : labels) {
        QFont font = label->font();
        font.setBold(name == View().ChosenCursor());
        label->setFont(font);
        label->setText(View().CursorText(name));
    }
    ui_->DifferenceLabel->setText(View().DifferenceText());
    ui_->SummaryLabel->setText(View().Summary());
    ui_->SummaryLabel->setVisible(!View().Summary().isEmpty());
    Describe(FurtherLines());
}

std::string PlotForm::Csv() const {
    return View().Csv();
}

QStringList PlotForm::FurtherLines() const {
    QStringList lines{View().Summary(), View().CursorText(PlotCursors::A),
                      View().CursorText(PlotCursors::B), View().DifferenceText()};
    lines.removeAll(QString());
    return lines;
}

}  // namespace vx3260

#include "moc_PlotForm.cpp"
