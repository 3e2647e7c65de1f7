// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/ModeForm.h"

#include <QApplication>
#include <QScopeGuard>

#include "link/Calibration.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui_ModeForm.h"

namespace vx3260 {
ModeForm::ModeForm(Services& services, QWidget* parent)
    : RegisterForm(services, RegisterMap::Mode, parent), ui_(std::make_unique<Ui::ModeForm>()) {
    ui_->setupUi(this);
    ui_->CalLabel->clear();
    UseHeadingFont(ui_->Label9);
    UseValueFont(ui_->modeLabel);
    ShowBoardLabel(ui_->BadgeLabel);
    bits_ = RegisterBits(RegisterMap::ModeFields);
    modes_ = {ui_->OptMD0, ui_->OptMD1, ui_->OptMD2, ui_->OptMD3,
              ui_->OptMD4, ui_->OptMD5, ui_->OptMD6, ui_->OptMD7};
    ConnectOptions();
    On(ui_->Command3, &QPushButton::clicked, &ModeForm::reject);

    WhileLoading([this] { KeepValue(ReadRegister()); });
    RefreshModeForm();
}

ModeForm::~ModeForm() = default;

void ModeForm::ConnectOptions() {
    using namespace RegisterMap;
    const std::string_view capitalP = ErrorProgramming;
    const std::string_view smallP = ErrorProgrammingSmallP;
    SetOptions({
        {ui_->OptBufOn, Buffering, 1, capitalP},
        {ui_->OptBufOff, Buffering, 0, capitalP},
        {ui_->OptChConSet, Chcon, 1, capitalP},
        {ui_->OptChConClr, Chcon, 0, capitalP},
        {ui_->OptOscOff, Oscillator, 1, capitalP},
        {ui_->OptOscOn, Oscillator, 0, capitalP},
        {ui_->OptMD0, OperatingMode, 0, smallP},
        {ui_->OptMD1, OperatingMode, 1, smallP, {.mismatchEnds = true}},
        {ui_->OptMD2, OperatingMode, 2, smallP},
        {ui_->OptMD3,
         OperatingMode,
         3,
         smallP,
         {.afterReadBack = [this] { ui_->CalLabel->clear(); }}},
    });
    OnCalibration(ui_->OptMD4, [this] { CalibrateInternalZero(); });
    OnCalibration(ui_->OptMD5, [this] { CalibrateAndReadBack(InternalFullScale); });
    OnCalibration(ui_->OptMD6, [this] {
        ShowMessage({.text = "Please Connect a Zero Scale signal to the Analog Input",
                     .icon = MessageIcon::Information});
        CalibrateAndReadBack(SystemZeroScale);
    });
    // Icon and small "c" differ from the zero scale's by design.
    OnCalibration(ui_->OptMD7, [this] {
        ShowMessage({.text = "Please connect a Full Scale signal to the Analog Input",
                     .icon = MessageIcon::Question});
        CalibrateAndReadBack(SystemFullScale);
    });
}

void ModeForm::OnCalibration(QRadioButton* option, const std::function<void()>& calibrate) {
    OnSelected(option, [this, calibrate] {
        if (!Loading()) {
            calibrate();
        }
    });
}

void ModeForm::KeepValue(std::int32_t value) {
    State().ModeRegisterValue = static_cast<std::int16_t>(value);
}

void ModeForm::ShowReadBack(std::int32_t readBack) {
    ui_->modeLabel->setText(QString::fromStdString(HexText(readBack)));
    RefreshBitLabels();
}

void ModeForm::RefreshBitLabels() {
    KeepValue(ReadRegister());
    WhileLoading([this] { bits_->Show(State().ModeRegisterValue); });
}

void ModeForm::RefreshModeForm() {
    WhileLoading([this] {
        const std::int32_t value = State().ModeRegisterValue;
        bits_->Show(value);
        for (const RegisterMap::Field* field :
             {&RegisterMap::Buffering, &RegisterMap::Chcon, &RegisterMap::Oscillator}) {
            SelectOption(*field, value);
        }
        modes_.at(static_cast<std::size_t>(RegisterMap::OperatingMode.CodeIn(value)))
            ->setChecked(true);
        ui_->modeLabel->setText(QString::fromStdString(HexText(value)));
    });
}

/// Starts the calibration and waits for data-ready. The chip leaves the mode on its own.
void ModeForm::Calibrate(std::int32_t mode) {
    KeepValue(ReadRegister());
    ChipRegister().RegValue = RegisterMap::OperatingMode.Insert(State().ModeRegisterValue, mode);
    ChipRegister().WriteReg();
    ui_->CalLabel->setText(tr("VX3260 Calibrating"));
    ui_->CalLabel->repaint();
    if (!WaitForTheEnd()) {
        ShowMessage({.text = "Error Calibrating VX3260", .icon = MessageIcon::Exclamation});
    }
}

bool ModeForm::WaitForTheEnd() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto waited = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    return WaitForCalibration(Shared().port, State().PortAddress);
}

void ModeForm::CalibrateAndReadBack(std::int32_t mode) {
    Calibrate(mode);
    KeepValue(ReadRegister());
    ui_->CalLabel->clear();
    RefreshModeForm();
}

/// Unlike the others the register is not read again, by design: the form shows it as it was before
/// the calibration. The "0" lasts only until that.
void ModeForm::CalibrateInternalZero() {
    Calibrate(RegisterMap::InternalZeroScale);
    ui_->CalLabel->clear();
    ui_->modeLabel->setText(QStringLiteral("0"));
    RefreshModeForm();
}

}  // namespace vx3260
