// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/CalibrationForm.h"

#include <QKeyEvent>
#include <algorithm>
#include <cmath>

#include "link/RegisterMap.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"
#include "ui/Fonts.h"

namespace vx3260 {
namespace {

bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// Enter and Backspace are typed like characters; Escape, arrows, Delete and shortcuts are not.
bool MakesCharacter(const QKeyEvent& key) {
    if (IsEnter(key) || key.key() == Qt::Key_Backspace) {
        return true;
    }
    // AltGr, which makes characters, arrives as Ctrl and Alt on some systems.
    const bool shortcut =
        key.modifiers().testFlag(Qt::ControlModifier) && !key.modifiers().testFlag(Qt::AltModifier);
    if (shortcut || key.text().isEmpty()) {
        return false;
    }
    return key.text().at(0).isPrint() || key.text().at(0).isSurrogate();
}

}  // namespace

CalibrationForm::CalibrationForm(Services& services, const CalibrationTraits& traits,
                                 QWidget* parent)
    : Form(services, parent),
      traits_(traits),
      zeroScale_{Register(services.port, services.state.PortAddress, traits.zeroScale)},
      fullScale_{Register(services.port, services.state.PortAddress, traits.fullScale)},
      modeRegister_(services.port, services.state.PortAddress) {
    modeRegister_.ReadAddress = RegisterMap::Mode.readByte;
    modeRegister_.WordLength = RegisterMap::Mode.wordLength;
}

void CalibrationForm::Load(const Controls& zeroScale, const Controls& fullScale) {
    const int bits = traits_.zeroScale.wordLength;
    const auto row = [&](int firstLabel, int lastLabel, const QString& name) {
        return std::make_unique<BitRow>(LabelsNamed(*this, NumberedLabels(firstLabel, lastLabel)),
                                        std::vector<QString>(static_cast<std::size_t>(bits), name));
    };
    zeroScale_.bits =
        row(traits_.firstZeroLabel, traits_.firstZeroLabel - bits + 1, tr("zero scale"));
    fullScale_.bits =
        row(traits_.firstFullLabel, traits_.firstFullLabel + bits - 1, tr("full scale"));
    zeroScale_.controls = zeroScale;
    fullScale_.controls = fullScale;
    for (Coefficient* coefficient : {&zeroScale_, &fullScale_}) {
        UseValueFont(coefficient->controls.hexLabel);
        UseFixedFont(coefficient->controls.entry);
        coefficient->controls.entry->installEventFilter(this);
        coefficient->value = coefficient->reg.ReadReg();
    }
    RefreshDisplay();
}

/// The key goes on to the box in any case.
bool CalibrationForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (MakesCharacter(key)) {
            KeyPressed(watched == zeroScale_.controls.entry ? zeroScale_ : fullScale_,
                       IsEnter(key));
        }
    }
    return Form::eventFilter(watched, event);
}

/// An error, above all a text that is no literal, empties the box without a message.
void CalibrationForm::KeyPressed(Coefficient& coefficient, bool enter) {
    try {
        if ((ToInt16(modeRegister_.ReadReg()) & RegisterMap::ModeMask) != RegisterMap::PowerDown) {
            ShowMessage({.text = "The VX3260 must be placed in Power-Down Mode to program the "
                                 "Calibration Registers",
                         .icon = MessageIcon::Exclamation});
            return;
        }
        if (enter) {
            Program(coefficient);
        }
    } catch (const RuntimeError&) {
        coefficient.controls.entry->clear();
        coefficient.controls.entry->setFocus();
    }
}

void CalibrationForm::Program(Coefficient& coefficient) {
    coefficient.value = TypedValue(coefficient);
    coefficient.reg.RegValue = coefficient.value;
    coefficient.reg.WriteReg();
    const double readBack = ToInt32(coefficient.reg.ReadReg());
    if (readBack != coefficient.value) {
        ShowMessage({.text = "An Error has occurred , The Register may not be programmed correctly",
                     .icon = MessageIcon::Exclamation});
        return;
    }
    RefreshDisplay();
}

double CalibrationForm::TypedValue(const Coefficient& coefficient) const {
    double value = HexLiteral(coefficient.controls.entry->text().toStdString());
    if (value < 0) {
        value += traits_.correction;
    }
    return std::min(value, traits_.largestEntry);
}

void CalibrationForm::RefreshDisplay() {
    ShowCoefficient(zeroScale_);
    ShowCoefficient(fullScale_);
}

void CalibrationForm::ShowCoefficient(Coefficient& coefficient) const {
    const auto value = static_cast<std::int32_t>(std::trunc(coefficient.value));
    coefficient.bits->Show(value);
    const QString hex =
        QString::fromStdString(HexText(value)).rightJustified(traits_.hexDigits, QLatin1Char('0'));
    coefficient.controls.hexLabel->setText(hex);
    coefficient.controls.entry->setText(hex);
}

}  // namespace vx3260
