// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/IOControlForm.h"

#include "ui/Fonts.h"
#include "ui/ValueTexts.h"
#include "ui_IOControlForm.h"

namespace vx3260 {

IOControlForm::IOControlForm(Services& services, QWidget* parent)
    : RegisterForm(services, RegisterMap::IOControl, parent),
      ui_(std::make_unique<Ui::IOControlForm>()) {
    using namespace RegisterMap;
    ui_->setupUi(this);
    UseHeadingFont(ui_->HeadingLabel);
    UseValueFont(ui_->IOControlLabel);
    ShowBoardLabel(ui_->BoardLabel);
    MakeBits(*ui_->Bits);
    switchPins_ = {
        {ui_->OptP1Power, ui_->OptP1Tri, ui_->OptP1IO, ui_->OptP1High, ui_->OptP1Low, &P1Function,
         &P1Status},
        {ui_->OptP2Power, ui_->OptP2Tri, ui_->OptP2IO, ui_->optP2High, ui_->OptP2Low, &P2Function,
         &P2Status},
    };
    twoWayPins_ = {
        {ui_->OptP3High, ui_->optP3Low, ui_->P3Label, &P3Direction, &P3State},
        {ui_->OptP4High, ui_->OptP4Low, ui_->P4Label, &P4Direction, &P4State},
    };
    ConnectOptions();
    On(ui_->Command2, &QPushButton::clicked, &IOControlForm::UpdateDisplay);
    On(ui_->Command1, &QPushButton::clicked, &IOControlForm::reject);
    UpdateDisplay();
}

IOControlForm::~IOControlForm() = default;

void IOControlForm::ConnectOptions() {
    using namespace RegisterMap;
    const auto row = [](QRadioButton* button, const Field& field, std::int32_t code,
                        OptionSteps steps = {}) {
        steps.mismatchEnds = true;
        return Option{button, field, code, MessageTexts::ErrorProgramming, std::move(steps)};
    };
    const SwitchPin& p1 = switchPins_[0];
    const SwitchPin& p2 = switchPins_[1];
    const TwoWayPin& p3 = twoWayPins_[0];
    const TwoWayPin& p4 = twoWayPins_[1];
    const auto showFunction = [](const SwitchPin& pin, bool power) {
        return OptionSteps{.onSuccess = [&pin, power] { ShowFunction(pin, power); }};
    };
    const auto showDirection = [](const TwoWayPin& pin, bool output) {
        return OptionSteps{.onSuccess = [&pin, output] { ShowDirection(pin, output); }};
    };
    // An input is good as soon as its pin reads high, whatever else was read back.
    const auto showInput = [](const TwoWayPin& pin) {
        return OptionSteps{.onSuccess = [&pin] { ShowDirection(pin, false); },
                           .alsoGoodWith = pin.state->mask};
    };
    const auto enableLevels = [](const SwitchPin& pin) {
        return OptionSteps{.beforeReading = [&pin] { EnableLevels(pin, true); }};
    };
    const auto disableLevels = [](const SwitchPin& pin) {
        return OptionSteps{.always = [&pin] { EnableLevels(pin, false); }};
    };
    SetOptions({
        row(ui_->OptBurnOn, Burnout, 1),
        row(ui_->OptBurnOff, Burnout, 0),
        row(ui_->OptIEXC2Iout1, Iexc2Direction, 1),
        row(ui_->OptIEXC2Iout2, Iexc2Direction, 0),
        row(ui_->OptIEXC1Iout2, Iexc1Direction, 1),
        row(ui_->OptIEXC1Iout1, Iexc1Direction, 0),
        row(ui_->OptIEXC2On, Iexc2, 1),
        row(ui_->OptIEXC2Off, Iexc2, 0),
        row(ui_->optIEXC1On, Iexc1, 1),
        row(ui_->OptIEXC1Off, Iexc1, 0),
        row(ui_->OptP1Power, P1Function, 1, showFunction(p1, true)),
        row(ui_->OptP1Out, P1Function, 0, showFunction(p1, false)),
        row(ui_->OptP2Power, P2Function, 1, showFunction(p2, true)),
        row(ui_->optP2Out, P2Function, 0, showFunction(p2, false)),
        row(ui_->OptP1IO, P1Status, 1, enableLevels(p1)),
        row(ui_->OptP1Tri, P1Status, 0, disableLevels(p1)),
        row(ui_->OptP2IO, P2Status, 1, enableLevels(p2)),
        row(ui_->OptP2Tri, P2Status, 0, disableLevels(p2)),
        row(ui_->OptP3Out, P3Direction, 1, showDirection(p3, true)),
        row(ui_->OptP3In, P3Direction, 0, showInput(p3)),
        row(ui_->OptP4Out, P4Direction, 1, showDirection(p4, true)),
        row(ui_->OptP4In, P4Direction, 0, showInput(p4)),
        row(ui_->OptP1High, P1State, 1),
        row(ui_->OptP1Low, P1State, 0),
        row(ui_->optP2High, P2State, 1),
        row(ui_->OptP2Low, P2State, 0),
        row(ui_->OptP3High, P3State, 1),
        row(ui_->optP3Low, P3State, 0),
        row(ui_->OptP4High, P4State, 1),
        row(ui_->OptP4Low, P4State, 0),
    });
}

void IOControlForm::KeepValue(std::int32_t value) {
    State().IOControlValue = value;
}

void IOControlForm::ShowReadBack(std::int32_t /*readBack*/) {
    RefreshDisplay();
}

void IOControlForm::UpdateDisplay() {
    DecodeOptions();
    RefreshDisplay();
}

void IOControlForm::DecodeOptions() {
    WhileLoading([this] {
        const std::int32_t value = ReadRegister();
        KeepValue(value);
        for (const RegisterMap::Field& field : RegisterMap::IOControlFields) {
            SelectOption(field, value);
        }
        for (const SwitchPin& pin : switchPins_) {
            const bool power = pin.function->CodeIn(value) != 0;
            EnableStatus(pin, !power);
            EnableLevels(pin, !power && pin.status->CodeIn(value) != 0);
        }
        for (const TwoWayPin& pin : twoWayPins_) {
            ShowDirection(pin, pin.direction->CodeIn(value) != 0);
            pin.level->setText(pin.state->CodeIn(value) != 0 ? tr("High") : tr("Low"));
        }
    });
}

void IOControlForm::RefreshDisplay() {
    WhileLoading([this] {
        const std::int32_t value = ReadRegister();
        KeepValue(value);
        ui_->Bits->ShowValue(value);
        ShowHex(ui_->IOControlLabel, value);
    });
}

void IOControlForm::EnableStatus(const SwitchPin& pin, bool enabled) {
    pin.triState->setEnabled(enabled);
    pin.driven->setEnabled(enabled);
}

void IOControlForm::EnableLevels(const SwitchPin& pin, bool enabled) {
    pin.high->setEnabled(enabled);
    pin.low->setEnabled(enabled);
}

void IOControlForm::ShowFunction(const SwitchPin& pin, bool power) {
    EnableStatus(pin, !power);
    if (power) {
        EnableLevels(pin, false);
    } else if (pin.driven->isChecked()) {
        EnableLevels(pin, true);
    }
}

void IOControlForm::ShowDirection(const TwoWayPin& pin, bool output) {
    pin.high->setVisible(output);
    pin.low->setVisible(output);
    pin.level->setVisible(!output);
}

}  // namespace vx3260

#include "moc_IOControlForm.cpp"
