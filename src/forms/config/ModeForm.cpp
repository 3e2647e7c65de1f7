// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/ModeForm.h"

#include <QApplication>
#include <QScopeGuard>

#include "link/Calibration.h"
#include "ui/Fonts.h"
#include "ui/ValueTexts.h"
#include "ui_ModeForm.h"

namespace vx3260 {
ModeForm::ModeForm(Services& services, QWidget* parent)
    : RegisterForm(services, RegisterMap::Mode, parent), ui_(std::make_unique<Ui::ModeForm>()) {
    ui_->setupUi(this);
    ui_->CalLabel->clear();
    UseHeadingFont(ui_->Label9);
    UseValueFont(ui_->modeLabel);
    ShowBoardLabel(ui_->BoardLabel);
    MakeBits(*ui_->Bits);
    ConnectOptions();
    On(ui_->Command3, &QPushButton::clicked, &ModeForm::reject);

    WhileLoading([this] { KeepValue(ReadRegister()); });
    RefreshModeForm();
}

ModeForm::~ModeForm() = default;

void ModeForm::ConnectOptions() {
    using namespace RegisterMap;
    const std::string_view capitalP = MessageTexts::ErrorProgramming;
    const std::string_view smallP = MessageTexts::ErrorProgrammingSmallP;
    const auto calibration = [this](QRadioButton* button, std::int32_t mode) {
        return Option{button,
                      OperatingMode,
                      mode,
                      MessageTexts::ErrorCalibrating,
                      {.inPlaceOfWrite = [this, mode] { Calibrate(mode); }}};
    };
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
        calibration(ui_->OptMD4, InternalZeroScale),
        calibration(ui_->OptMD5, InternalFullScale),
        calibration(ui_->OptMD6, SystemZeroScale),
        calibration(ui_->OptMD7, SystemFullScale),
    });
}

void ModeForm::KeepValue(std::int32_t value) {
    State().ModeRegisterValue = static_cast<std::int16_t>(value);
}

void ModeForm::ShowReadBack(std::int32_t readBack) {
    ShowHex(ui_->modeLabel, readBack);
    RefreshBitLabels();
}

void ModeForm::RefreshBitLabels() {
    KeepValue(ReadRegister());
    WhileLoading([this] { ui_->Bits->ShowValue(State().ModeRegisterValue); });
}

void ModeForm::RefreshModeForm() {
    WhileLoading([this] {
        const std::int32_t value = State().ModeRegisterValue;
        ui_->Bits->ShowValue(value);
        for (const RegisterMap::Field& field : RegisterMap::ModeFields) {
            SelectOption(field, value);
        }
        ShowHex(ui_->modeLabel, value);
    });
}

void ModeForm::Calibrate(std::int32_t mode) {
    if (const auto prompt = MessageTexts::CalibrationPrompt(mode)) {
        ShowMessage(*prompt);
    }
    KeepValue(StartCalibration(ChipRegister(), mode));
    ui_->CalDoneLabel->clear();
    ui_->CalLabel->setText(tr("VX3260 Calibrating"));
    ui_->CalLabel->repaint();
    const bool done = WaitForCalibrationEnd();
    if (!done) {
        ShowMessage({.text = std::string(MessageTexts::ErrorCalibrating),
                     .icon = MessageIcon::Exclamation,
                     .detail = MessageTexts::CalibrationTimeoutDetail(Shared().port)});
    }
    ShowCalibrationEnd(mode, done);
    // After the internal zero scale the register is not read again: the form shows it as it was
    // before the calibration; intentional.
    if (mode == RegisterMap::InternalZeroScale) {
        ShowHex(ui_->modeLabel, 0);
    } else {
        KeepValue(ReadRegister());
    }
    ui_->CalLabel->clear();
    RefreshModeForm();
}

void ModeForm::ShowCalibrationEnd(std::int32_t mode, bool done) {
    static constexpr const char* names[] = {QT_TR_NOOP("Internal zero-scale calibration"),
                                            QT_TR_NOOP("Internal full-scale calibration"),
                                            QT_TR_NOOP("System zero-scale calibration"),
                                            QT_TR_NOOP("System full-scale calibration")};
    const QString name = tr(names[mode - RegisterMap::InternalZeroScale]);
    ui_->CalDoneLabel->setText((done ? tr("%1 done") : tr("%1 did not end")).arg(name));
}

bool ModeForm::WaitForCalibrationEnd() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto waited = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    return WaitForCalibration(Shared().port, State().PortAddress);
}

}  // namespace vx3260

#include "moc_ModeForm.cpp"
