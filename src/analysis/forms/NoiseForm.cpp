// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/NoiseForm.h"

#include "analysis/NoiseTexts.h"
#include "analysis/ReadingTexts.h"
#include "analysis/forms/HistogramForm.h"
#include "analysis/forms/PlotForm.h"
#include "link/Register.h"
#include "ui/Fonts.h"
#include "ui/ValueTexts.h"
#include "ui_NoiseForm.h"

namespace vx3260 {
namespace {

QLabel* ShowFigure(QWidget& form, std::string_view name, const std::string& text) {
    auto* const label = form.findChild<QLabel*>(QString::fromUtf8(name));
    UseFixedFont(label);
    label->setText(QString::fromStdString(text));
    return label;
}

AnalysedBlock Analyse(const CodeBlock& block, const std::optional<BlockConditions>& reading,
                      const ConversionConditions& present) {
    const std::span<const double> codes = block.Codes();
    const std::optional<ConversionConditions> own = reading ? ConditionsOf(*reading) : std::nullopt;
    return {{codes.begin(), codes.end()}, AnalyseNoise(codes, present, own), reading};
}

}  // namespace

NoiseForm::NoiseForm(Services& services, Converter converter, QWidget* parent)
    : Form(services, parent),
      ui_(std::make_unique<Ui::NoiseForm>()),
      converter_(converter),
      block_(Analyse(services.state.BlockOf(converter), services.state.ConditionsOf(converter),
                     ReadConditions())) {
    ui_->setupUi(this);
    ui_->HeadingLabel->setText(
        tr("%1 ADC Noise Analysis").arg(QString::fromUtf8(TraitsOf(converter).name)));
    UseHeadingFont(ui_->HeadingLabel);
    ShowBoardLabel(ui_->BoardLabel);
    On(ui_->Command1, &QPushButton::clicked, &NoiseForm::PlotGraph);
    On(ui_->Command2, &QPushButton::clicked, &NoiseForm::PlotHistogram);
    On(ui_->Command3, &QPushButton::clicked, &NoiseForm::reject);

    KeepStatistics();
    ShowTexts();
    ShowReading();
    ShowResolution();
}

NoiseForm::~NoiseForm() = default;

ConversionConditions NoiseForm::ReadConditions() {
    ApplicationState& state = State();
    const RegisterMap::RegisterAccess& control = TraitsOf(converter_).control;
    const std::int32_t value = ReadRegister(Shared().port, state.PortAddress, control);
    ConversionConditions conditions = ConditionsOf(converter_, state.ReferenceVoltage, value);
    // The shared conversion conditions are the main ADC's.
    if (converter_ == Converter::Main) {
        state.InputRange = conditions.inputRange;
        state.Polarity = conditions.polarity;
    }
    return conditions;
}

template <typename Plot>
void NoiseForm::OpenPlot(QPointer<Plot>& plot) {
    if (!plot) {
        plot = new Plot(Shared(), block_, this);
        plot->setAttribute(Qt::WA_DeleteOnClose);
    }
    plot->show();
    plot->raise();
    plot->activateWindow();
}

void NoiseForm::PlotGraph() {
    OpenPlot(graph_);
}

void NoiseForm::PlotHistogram() {
    OpenPlot(histogram_);
}

void NoiseForm::KeepStatistics() {
    ApplicationState& state = State();
    const NoiseAnalysis& analysis = block_.analysis;
    state.MaxCode = analysis.statistics.maxCode;
    state.MinCode = analysis.statistics.minCode;
    state.AverageCode = analysis.statistics.averageCode;
    state.RmsNoiseLsb = analysis.statistics.rmsNoiseLsb;
    state.LsbSize = analysis.conditions.lsbVolts * NanovoltsPerVolt;
}

void NoiseForm::ShowTexts() {
    for (const NoiseRow& row : NoiseRows) {
        QLabel* const label = ShowFigure(*this, row.label, TextOf(block_.analysis, row.figure));
        if (const auto number = HexNumberOf(block_.analysis, row.figure)) {
            ShowHex(label, *number);
        }
    }
    ShowDecimal(ui_->CodesLabel, static_cast<std::int32_t>(block_.analysis.count));
    const QString why =
        tr("The average is summed in single precision, 24 bits. Near mid-scale\nit "
           "may be tens of codes off, and the RMS noise is taken from it and rounded to "
           "whole codes.\nThe frame \"Resolution\" has the figures in double precision.");
    for (QLabel* label : {ui_->AvValueLabel, ui_->AverageLabel, ui_->RMSLabel, ui_->RMSLabelLSB}) {
        label->setToolTip(QStringLiteral("%1\n%2").arg(label->toolTip(), why).trimmed());
    }
}

void NoiseForm::ShowReading() {
    ui_->ReadingLabel->setText(ToQStrings(ReadingLines(block_.reading)).join(QLatin1Char('\n')));
    const std::string change = ChangeSinceReading(block_.analysis.own, block_.analysis.conditions);
    ui_->ChangeLabel->setText(QString::fromStdString(change));
    ui_->ChangeLabel->setVisible(!change.empty());
    ShowWarnings(ui_->WarningsLabel, TextsOf(WarningsOf(block_)));
}

void NoiseForm::ShowResolution() {
    for (const ResolutionRow& row : ResolutionRows) {
        const ResolutionText text = TextOf(block_.analysis, row.figure);
        ShowFigure(*this, row.label, text.figure);
        if (!row.voltsLabel.empty()) {
            ShowFigure(*this, row.voltsLabel, text.volts);
        }
    }
    ui_->Frame4->setToolTip(tr(
        "In double precision, with N the number of readings, n the width of a result in bits and\n"
        "sigma the standard deviation of the codes in LSB, with the divisor N - 1.\n"
        "Mean ± its standard error, sigma / sqrt(N)\n"
        "In parentheses the 95 % confidence interval that follows from that of sigma\n"
        "Effective resolution: log2(2^n / sigma), at least n below a sigma of 0.29 LSB\n"
        "Noise-free resolution: log2(2^n / (6.6 sigma)), and log2(2^n / (largest - smallest "
        "code))"));
}

}  // namespace vx3260

#include "moc_NoiseForm.cpp"
