// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/ReadDualDataForm.h"

#include "analysis/WindowTexts.h"
#include "link/Serial.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/ValueTexts.h"
#include "ui_ReadDualDataForm.h"

namespace vx3260 {

ReadDualDataForm::ReadDualDataForm(Services& services, QWidget* parent)
    : ReadingForm(services, {Converter::Main, Converter::Aux}, parent),
      ui_(std::make_unique<Ui::ReadDualDataForm>()) {
    ui_->setupUi(this);
    for (QLineEdit* box :
         {ui_->MainCodeText, ui_->MainVoltsText, ui_->AuxCodeText, ui_->AuxVoltsText}) {
        UseFixedFont(box);
    }
    Load(ControlsOf(*ui_), {ui_->MainChart, ui_->AuxChart});
    ShowCharts();
    // Without it Qt opens a window with two thirds of the screen's height at most.
    resize(sizeHint());
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
    AddToCharts({code, auxCode});
}

}  // namespace vx3260

#include "moc_ReadDualDataForm.cpp"
