#include "analysis/MainNoiseForm.h"

#include "link/RegisterMap.h"
#include "link/Serial.h"
#include "ui/Fonts.h"
#include "ui_MainNoiseForm.h"

namespace vx3260 {
namespace {

constexpr double nanovoltsPerVolt = 1e9;

}  // namespace

MainNoiseForm::MainNoiseForm(Services& services, QWidget* parent)
    : Form(services, parent), ui_(std::make_unique<Ui::MainNoiseForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->HeadingLabel);
    ShowBadge(ui_->BadgeLabel);
    ui_->Command1->setEnabled(false);  // the plot of code against reading number
    ui_->Command2->setEnabled(false);  // the histogram
    On(ui_->Command3, &QPushButton::clicked, &MainNoiseForm::reject);

    const CodeBlock block = State().BlockOf(Converter::Main);
    const std::span<const double> codes(block.codes);
    const NoiseAnalysis analysis =
        AnalyseNoise(codes.first(static_cast<std::size_t>(block.count)), ReadConditions());
    KeepStatistics(analysis);
    ShowTexts(analysis.texts);
}

MainNoiseForm::~MainNoiseForm() = default;

NoiseConditions MainNoiseForm::ReadConditions() {
    ApplicationState& state = State();
    SerialWrite(Shared().port, RegisterMap::MainControl.readByte, state.PortAddress, 8);
    const auto control = static_cast<std::int16_t>(
        SerialRead(Shared().port, RegisterMap::MainControl.wordLength, state.PortAddress));
    NoiseConditions conditions = MainNoiseConditionsOf(state.ReferenceVoltage, control);
    state.InputRange = conditions.inputRange;
    state.Polarity = conditions.polarity;
    return conditions;
}

void MainNoiseForm::KeepStatistics(const NoiseAnalysis& analysis) {
    ApplicationState& state = State();
    state.MaxCode = analysis.statistics.maxCode;
    state.MinCode = analysis.statistics.minCode;
    state.AverageCode = analysis.statistics.averageCode;
    state.RmsNoiseLsb = analysis.statistics.rmsNoiseLsb;
    state.LsbSize = analysis.conditions.lsbVolts * nanovoltsPerVolt;
}

void MainNoiseForm::ShowTexts(const NoiseTexts& texts) {
    for (std::size_t i = 0; i < NoiseFigures.size(); ++i) {
        const std::string_view name = NoiseFigures[i].label;
        auto* label = findChild<QLabel*>(
            QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())));
        UseFixedFont(label);
        label->setText(QString::fromStdString(texts[i]));
    }
    const QString why = tr(
        "The average is summed in single precision, 24 bits, as this form is designed. Near "
        "mid-scale\nit may be tens of codes off, and the RMS noise is taken from it and rounded to "
        "whole codes.");
    for (QLabel* label : {ui_->AvValueLabel, ui_->AverageLabel, ui_->RMSLabel, ui_->RMSLabelLSB}) {
        label->setToolTip(why);
    }
}

}  // namespace vx3260
