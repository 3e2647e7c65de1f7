// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/ControlForm.h"

#include "ui/Fonts.h"
#include "ui/ValueTexts.h"

namespace vx3260 {

void ControlForm::Load(BitRow& bits, QLabel* valueLabel, std::span<const Captions> channels) {
    bits_ = &bits;
    valueLabel_ = valueLabel;
    UseValueFont(valueLabel_);
    // Read once: a change of CHCON shows when the form is opened again.
    ShowCaptions(channels, ReadChcon());
    KeepValue(ReadRegister());
    RefreshControlOptions();
    RefreshControlBits();
}

void ControlForm::ShowCaptions(std::span<const Captions> captions, bool second) {
    for (const Captions& caption : captions) {
        caption.button->setText(QString::fromUtf8(second ? caption.second : caption.first));
    }
}

bool ControlForm::ReadChcon() {
    return RegisterMap::Chcon.CodeIn(
               vx3260::ReadRegister(Shared().port, State().PortAddress, RegisterMap::Mode)) != 0;
}

void ControlForm::ShowReadBack(std::int32_t readBack) {
    ShowHex(valueLabel_, readBack);
    RefreshControlBits();
}

void ControlForm::RefreshControlBits() {
    WhileLoading([this] {
        const std::int32_t value = ReadRegister();
        KeepValue(value);
        bits_->ShowValue(value);
        FollowBits(value);
    });
}

void ControlForm::RefreshControlOptions() {
    WhileLoading([this] {
        const std::int32_t value = ReadRegister();
        KeepValue(value);
        SelectOptions(value);
        ShowDecimal(valueLabel_, value);
    });
}

}  // namespace vx3260

#include "moc_ControlForm.cpp"
