// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/MainControlForm.h"

#include "link/RegisterFields.h"
#include "ui/Fonts.h"
#include "ui_MainControlForm.h"

namespace vx3260 {

MainControlForm::MainControlForm(Services& services, QWidget* parent)
    : ControlForm(services, RegisterMap::MainControl, parent),
      ui_(std::make_unique<Ui::MainControlForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label9);
    ShowBoardLabel(ui_->BoardLabel);
    const Captions channels[] = {
        {ui_->OptAIN1_2, "AIN1 - AIN2", "AIN1 - AIN4"},
        {ui_->OptAIN3_4, "AIN3 - AIN4", "AIN3 - AIN4"},
        {ui_->OptAIN2_2, "AIN2 - AIN2", "AIN4 - AIN4"},
        {ui_->OptAIN3_2, "AIN3 - AIN2", "AIN2 - AIN4"},
    };
    ranges_ = {
        {ui_->Opt20, "± 20 mV", "0 - 20 mV"},    {ui_->Opt40, "± 40 mV", "0 - 40 mV"},
        {ui_->Opt80, "± 80 mV", "0 - 80 mV"},    {ui_->Opt160, "± 160 mV", "0 - 160 mV"},
        {ui_->Opt320, "± 320 mV", "0 - 320 mV"}, {ui_->Opt640, "± 640 mV", "0 - 640 mV"},
        {ui_->Opt128, "± 1.28 V", "0 - 1.28 V"}, {ui_->Opt256, "± 2.56 V", "0 - 2.56 V"},
    };
    ConnectOptions();
    On(ui_->Command1, &QPushButton::clicked, &MainControlForm::reject);
    MakeBits(*ui_->Bits);
    Load(*ui_->Bits, ui_->mainControlLabel, channels);
}

MainControlForm::~MainControlForm() = default;

Option MainControlForm::RangeOption(QRadioButton* button, std::int32_t code) {
    const float volts = RegisterMap::InputRanges.at(static_cast<std::size_t>(code));
    return {button,
            RegisterMap::InputRange,
            code,
            MessageTexts::ErrorProgrammingSmallP,
            {.always = [this, volts] { State().InputRange = volts; }}};
}

void MainControlForm::ConnectOptions() {
    using namespace RegisterMap;
    const std::string_view error = MessageTexts::ErrorProgrammingSmallP;
    SetOptions({
        RangeOption(ui_->Opt20, 0),
        RangeOption(ui_->Opt40, 1),
        RangeOption(ui_->Opt80, 2),
        RangeOption(ui_->Opt160, 3),
        RangeOption(ui_->Opt320, 4),
        RangeOption(ui_->Opt640, 5),
        RangeOption(ui_->Opt128, 6),
        RangeOption(ui_->Opt256, 7),
        {ui_->OptAIN1_2, MainChannel, 0, error},
        {ui_->OptAIN3_4, MainChannel, 1, error},
        {ui_->OptAIN2_2, MainChannel, 2, error},
        {ui_->OptAIN3_2, MainChannel, 3, error},
        {ui_->OptUnipolar,
         RegisterMap::Polarity,
         1,
         error,
         {.always = [this] { State().Polarity = vx3260::Polarity::Unipolar; },
          .beforeReading = [this] { ShowCaptions(ranges_, true); }}},
        {ui_->OptBipolar,
         RegisterMap::Polarity,
         0,
         error,
         {.always = [this] { State().Polarity = vx3260::Polarity::Bipolar; },
          .beforeReading = [this] { ShowCaptions(ranges_, false); }}},
        {ui_->Opt16, WordLength, 1, error},
        {ui_->Opt24, WordLength, 0, error},
        {ui_->OptMainEn, Enable, 1, error},
        {ui_->OptMainDis, Enable, 0, error},
    });
}

void MainControlForm::KeepValue(std::int32_t value) {
    State().MainControlValue = static_cast<std::int16_t>(value);
}

void MainControlForm::SelectOptions(std::int32_t value) {
    for (const RegisterMap::Field& field : RegisterMap::MainControlFields) {
        SelectOption(field, value);
    }
}

void MainControlForm::FollowBits(std::int32_t value) {
    ShowCaptions(ranges_, RegisterMap::Polarity.CodeIn(value) != 0);
    SelectOption(RegisterMap::Enable, value);
    SelectOption(RegisterMap::WordLength, value);
}

}  // namespace vx3260

#include "moc_MainControlForm.cpp"
