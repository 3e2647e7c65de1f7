// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/CalibrationForm.h"

#include <QKeyEvent>
#include <algorithm>
#include <cmath>

#include "app/MessageTexts.h"
#include "link/RegisterLookup.h"
#include "link/RegisterMap.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui/ValueTexts.h"
#include "ui_CalibrationForm.h"

namespace vx3260 {
namespace {

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
      ui_(std::make_unique<Ui::CalibrationForm>()),
      traits_(traits),
      zeroScale_{TraitsOf(traits.converter).zeroScale,
                 Register(services.port, services.state.PortAddress,
                          TraitsOf(traits.converter).zeroScale)},
      fullScale_{TraitsOf(traits.converter).fullScale,
                 Register(services.port, services.state.PortAddress,
                          TraitsOf(traits.converter).fullScale)},
      modeRegister_(services.port, services.state.PortAddress, RegisterMap::Mode) {
    ui_->setupUi(this);
    NameControls();
    UseHeadingFont(ui_->Label53);
    ShowBoardLabel(ui_->BoardLabel);
    On(ui_->Command1, &QPushButton::clicked, &CalibrationForm::reject);
    zeroScale_.entry = ui_->ZeroText;
    zeroScale_.hexLabel = ui_->ZeroLabel;
    zeroScale_.bits = ui_->zeroBits;
    fullScale_.entry = ui_->FullText;
    fullScale_.hexLabel = ui_->FullLabel;
    fullScale_.bits = ui_->fullBits;
    SetUp(zeroScale_, tr("zero scale"));
    SetUp(fullScale_, tr("full scale"));
    RefreshDisplay();
}

CalibrationForm::~CalibrationForm() = default;

/// The twins' controls have names of their own: "MainZeroText", "AuxZeroText".
void CalibrationForm::NameControls() {
    const QString converter = QString::fromUtf8(TraitsOf(traits_.converter).name);
    ui_->Label53->setText(tr("%1 Calibration Registers").arg(converter));
    for (QWidget* control : std::initializer_list<QWidget*>{ui_->ZeroText, ui_->ZeroLabel,
                                                            ui_->FullText, ui_->FullLabel}) {
        control->setObjectName(converter + control->objectName());
    }
}

/// Reads the register.
void CalibrationForm::SetUp(Coefficient& coefficient, const QString& name) {
    const int bits = coefficient.reg.WordLength;
    coefficient.bits->setProperty("bitCount", bits);
    coefficient.bits->MakeCells(std::vector<QString>(static_cast<std::size_t>(bits), name));
    UseValueFont(coefficient.hexLabel);
    UseFixedFont(coefficient.entry);
    coefficient.entry->installEventFilter(this);
    SelectTextOnFocus(coefficient.entry);
    coefficient.value = coefficient.reg.ReadValue();
}

/// The key reaches the line edit in any case.
bool CalibrationForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (MakesCharacter(key)) {
            Coefficient& coefficient = watched == zeroScale_.entry ? zeroScale_ : fullScale_;
            Guarded([this, &coefficient, &key] { KeyPressed(coefficient, IsEnter(key)); });
        }
    }
    return Form::eventFilter(watched, event);
}

/// An error, usually a text that is not a hexadecimal literal, clears the line edit without a
/// message.
void CalibrationForm::KeyPressed(Coefficient& coefficient, bool enter) {
    try {
        if (!RegisterMap::IsPowerDown(modeRegister_.ReadValue())) {
            ShowMessage({.text = std::string(MessageTexts::CalibrationNeedsPowerDown),
                         .icon = MessageIcon::Exclamation,
                         .detail = "Select \"Power Down Mode\" in the mode register first."});
        } else if (enter) {
            Program(coefficient);
        }
        if (enter) {
            coefficient.entry->selectAll();
        }
    } catch (const RuntimeError&) {
        coefficient.entry->clear();
        coefficient.entry->setFocus();
    }
}

void CalibrationForm::Program(Coefficient& coefficient) {
    coefficient.value = TypedValue(coefficient);
    coefficient.reg.WriteValue(coefficient.value);
    const std::int32_t readBack = coefficient.reg.ReadValue();
    if (readBack != coefficient.value) {
        ShowMessage({.text = std::string(MessageTexts::CoefficientNotVerified),
                     .icon = MessageIcon::Exclamation,
                     .detail = MessageTexts::MismatchDetail(
                         Shared().port, RegisterMap::DescriptionOf(coefficient.access),
                         static_cast<std::int32_t>(coefficient.value), readBack)});
        return;
    }
    RefreshDisplay();
}

double CalibrationForm::TypedValue(const Coefficient& coefficient) const {
    double value = HexLiteral(coefficient.entry->text().toStdString());
    if (value < 0) {
        value += traits_.correction;
    }
    return std::min<double>(value, LargestCodeOf(traits_.converter));
}

void CalibrationForm::RefreshDisplay() {
    ShowCoefficient(zeroScale_);
    ShowCoefficient(fullScale_);
}

void CalibrationForm::ShowCoefficient(const Coefficient& coefficient) const {
    const auto value = static_cast<std::int32_t>(std::trunc(coefficient.value));
    coefficient.bits->ShowValue(value);
    constexpr int bitsPerDigit = 4;
    const QString hex =
        QString::fromStdString(HexText(value, coefficient.reg.WordLength / bitsPerDigit));
    ShowHex(coefficient.hexLabel, hex, value);
    coefficient.entry->setText(hex);
}

}  // namespace vx3260

#include "moc_CalibrationForm.cpp"
