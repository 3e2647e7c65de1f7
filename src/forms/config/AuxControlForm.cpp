// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/AuxControlForm.h"

#include "link/RegisterFields.h"
#include "ui/Fonts.h"
#include "ui_AuxControlForm.h"

namespace vx3260 {
namespace {

constexpr float rangeOfHalfReference = 0.04F;

}  // namespace

AuxControlForm::AuxControlForm(Services& services, QWidget* parent)
    : ControlForm(services, RegisterMap::AuxControl, parent),
      ui_(std::make_unique<Ui::AuxControlForm>()) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label9);
    ShowBoardLabel(ui_->BoardLabel);
    const Captions channels[] = {
        {ui_->OptAIN3_Agnd, "AIN3 - AGND", "AIN5 - AGND"},
        {ui_->OptAIN4_Agnd, "AIN4 - AGND", "AIN6 - AGND"},
        {ui_->OptAIN5_6, "AIN5 - AIN6", "AIN5 - AIN6"},
        {ui_->OptTemp, "TEMP SENSOR", "TEMP SENSOR"},
        {ui_->OptAGND_AGND, "AGND - AGND", "AGND - AGND"},
    };
    references_ = {
        {ui_->OptREF, "± REFIN2", "0 - REFIN2"},
        {ui_->OptREF2, "± REFIN2 / 2", "0 - REFIN2 / 2"},
    };
    ConnectOptions();
    On(ui_->Command1, &QPushButton::clicked, &AuxControlForm::reject);
    MakeBits(*ui_->Bits);
    Load(*ui_->Bits, ui_->AuxControlLabel, channels);
}

AuxControlForm::~AuxControlForm() = default;

void AuxControlForm::ConnectOptions() {
    using namespace RegisterMap;
    const std::string_view error = MessageTexts::ErrorProgrammingSmallP;
    SetOptions({
        {ui_->OptAIN3_Agnd, AuxChannel, 0, error},
        {ui_->OptAIN4_Agnd, AuxChannel, 1, error},
        {ui_->OptAIN5_6, AuxChannel, 2, error},
        {ui_->OptTemp, AuxChannel, 3, error},
        {ui_->OptAGND_AGND, AuxChannel, 4, error},
        {ui_->OptREF, Reference, 1, error},
        // Only this one of the two sets the shared range; intentional.
        {ui_->OptREF2,
         Reference,
         0,
         error,
         {.always = [this] { State().InputRange = rangeOfHalfReference; }}},
        {ui_->OptUnipolar,
         RegisterMap::Polarity,
         1,
         error,
         {.always = [this] { State().Polarity = vx3260::Polarity::Unipolar; },
          .beforeReading = [this] { ShowClickedUnipolar(); },
          .atTheEnd = [this] { ShowClickedReference(true); }}},
        {ui_->OptBipolar,
         RegisterMap::Polarity,
         0,
         error,
         {.always = [this] { State().Polarity = vx3260::Polarity::Bipolar; },
          .beforeReading = [this] { ShowCaptions(references_, false); },
          .atTheEnd = [this] { ShowClickedReference(false); }}},
        {ui_->OptAuxEn, Enable, 1, error},
        {ui_->OptAuxDis, Enable, 0, error},
    });
}

void AuxControlForm::KeepValue(std::int32_t value) {
    State().AuxControlValue = static_cast<std::int16_t>(value);
}

void AuxControlForm::SelectOptions(std::int32_t value) {
    for (const RegisterMap::Field& field : RegisterMap::AuxControlFields) {
        SelectOption(field, value);
    }
}

/// Unlike the main form this one selects no options here.
void AuxControlForm::FollowBits(std::int32_t value) {
    ShowCaptions(references_, RegisterMap::Polarity.CodeIn(value) != 0);
}

void AuxControlForm::ShowClickedUnipolar() {
    ShowCaptions(references_, true);
    ShowClickedReference(true);
}

/// This caption follows the click, also where the chip did not take it. The unipolar one lacks its
/// dash until the form is opened again; intentional.
void AuxControlForm::ShowClickedReference(bool unipolar) {
    ui_->OptREF->setText(unipolar ? QStringLiteral("0 REFIN2")
                                  : QString::fromUtf8(references_.front().first));
}

}  // namespace vx3260

#include "moc_AuxControlForm.cpp"
