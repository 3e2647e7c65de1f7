// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/ReadAuxDataForm.h"

#include "acquisition/Temperature.h"
#include "analysis/NoiseStatistics.h"
#include "analysis/forms/AuxNoiseForm.h"
#include "link/RegisterMap.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui_ReadAuxDataForm.h"

namespace vx3260 {
ReadAuxDataForm::ReadAuxDataForm(Services& services, QWidget* parent)
    : BlockReadingForm(services, Converter::Aux, parent),
      ui_(std::make_unique<Ui::ReadAuxDataForm>()) {
    ui_->setupUi(this);
    UseFixedFont(ui_->TemperatureText);
    SelectTextOnFocus(ui_->SlopeText);
    LoadTwin(*ui_);

    new PositiveEntry(ui_->SlopeText, State().TemperatureSlope, "0.000",
                      tr("Enter a slope of 0.001 mV/K or more. %1 mV/K stays in use."));
    On(ui_->SlopeText, &QLineEdit::textChanged, &ReadAuxDataForm::ShowTemperature);
    On(ui_->RefText, &QLineEdit::textChanged, &ReadAuxDataForm::ShowTemperature);
    const int channel = Reader().Control(Converter::Aux) & RegisterMap::AuxChannelMask;
    ui_->TemperatureFrame->setVisible(channel == RegisterMap::TemperatureSensor);
}

ReadAuxDataForm::~ReadAuxDataForm() = default;

/// A temperature measured before the reading is out of date.
void ReadAuxDataForm::PrepareReading() {
    BlockReadingForm::PrepareReading();
    measuredCode_.reset();
    ui_->TemperatureText->clear();
}

void ReadAuxDataForm::ShowCode(std::int32_t code) {
    BlockReadingForm::ShowCode(code);
    measuredCode_ = code;
    ShowTemperature();
}

void ReadAuxDataForm::BlockRead() {
    const std::span<const double> codes(State().AuxCodes);
    measuredCode_ =
        ComputeExactStatistics(codes.first(static_cast<std::size_t>(State().AuxCodeCount))).mean;
    ShowTemperature();
}

void ReadAuxDataForm::ShowTemperature() {
    if (!measuredCode_) {
        return;
    }
    const double volts = Conditions(Converter::Aux).VoltsOf(*measuredCode_);
    const double celsius = CelsiusOf(volts, State().TemperatureSlope);
    ShowAtOnce(ui_->TemperatureText, FixedText(celsius, 2));
}

void ReadAuxDataForm::OpenNoiseForm() {
    OpenForm<AuxNoiseForm>();
}

}  // namespace vx3260

#include "moc_ReadAuxDataForm.cpp"
