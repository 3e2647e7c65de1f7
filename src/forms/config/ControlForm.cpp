// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/ControlForm.h"

#include <utility>

#include "link/Serial.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"

namespace vx3260 {

void ControlForm::Load(std::unique_ptr<BitRow> bits, QLabel* valueLabel,
                       std::span<const Captions> channels) {
    bits_ = std::move(bits);
    valueLabel_ = valueLabel;
    UseValueFont(valueLabel_);
    // Looked at once: a change of CHCON shows when the form is opened again.
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
    const std::int16_t port = State().PortAddress;
    SerialWrite(Shared().port, RegisterMap::Mode.readByte, port, 8);
    const std::int32_t mode = SerialRead(Shared().port, RegisterMap::Mode.wordLength, port);
    return RegisterMap::Chcon.CodeIn(mode) != 0;
}

void ControlForm::ShowReadBack(std::int32_t readBack) {
    valueLabel_->setText(QString::fromStdString(HexText(readBack)));
    RefreshControlBits();
}

void ControlForm::RefreshControlBits() {
    WhileLoading([this] {
        const std::int32_t value = ReadRegister();
        KeepValue(value);
        bits_->Show(value);
        FollowBits(value);
    });
}

void ControlForm::RefreshControlOptions() {
    WhileLoading([this] {
        const std::int32_t value = ReadRegister();
        KeepValue(value);
        SelectOptions(value);
        valueLabel_->setText(QString::number(value));
    });
}

}  // namespace vx3260
