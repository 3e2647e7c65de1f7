// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/ReadDualDataForm.h"

#include <cmath>

#include "link/Serial.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/ValueTexts.h"
#include "ui_ReadDualDataForm.h"

namespace vx3260 {
namespace {

/// As many decimals as one code needs, so that the point stays where it is from code to code.
std::string SteadyVoltsText(const ConversionConditions& conditions, std::int32_t code) {
    const int decimals = static_cast<int>(std::ceil(-std::log10(conditions.lsbVolts)));
    return FixedText(conditions.VoltsOf(code), std::max(0, decimals)) + " V";
}

}  // namespace

ReadDualDataForm::ReadDualDataForm(Services& services, QWidget* parent)
    : ReadingForm(services, {Converter::Main, Converter::Aux}, parent),
      ui_(std::make_unique<Ui::ReadDualDataForm>()) {
    ui_->setupUi(this);
    for (QLineEdit* box :
         {ui_->MainCodeText, ui_->MainVoltsText, ui_->AuxCodeText, ui_->AuxVoltsText}) {
        UseFixedFont(box);
    }
    Load(ControlsOf(*ui_));
}

ReadDualDataForm::~ReadDualDataForm() = default;

std::int32_t ReadDualDataForm::ReadNext() {
    const std::int32_t code = Reader().ReadCode();
    return Reader().CodeAlongside() == ReadTimeout ? ReadTimeout : code;
}

void ReadDualDataForm::ShowCode(std::int32_t code) {
    const std::int32_t auxCode = Reader().CodeAlongside();
    ShowAtOnce(ui_->MainCodeText, HexText(code));
    ExplainHex(ui_->MainCodeText, code);
    ShowAtOnce(ui_->MainVoltsText, SteadyVoltsText(Conditions(Converter::Main), code));
    ShowAtOnce(ui_->AuxCodeText, HexText(auxCode));
    ExplainHex(ui_->AuxCodeText, auxCode);
    ShowAtOnce(ui_->AuxVoltsText, SteadyVoltsText(Conditions(Converter::Aux), auxCode));
}

}  // namespace vx3260

#include "moc_ReadDualDataForm.cpp"
