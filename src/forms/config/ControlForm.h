// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QRadioButton>
#include <span>

#include "forms/config/RegisterForm.h"
#include "ui/BitRow.h"

namespace vx3260 {

/// What the twins MainControlForm and AuxControlForm have in common. After loading, the value's
/// label shows the register in decimal, after a click in hexadecimal; intentional.
class ControlForm : public RegisterForm {
    Q_OBJECT

  protected:
    /// An option button with the two texts it can have.
    struct Captions {
        QRadioButton* button;
        const char* first;
        const char* second;
    };

    using RegisterForm::RegisterForm;

    /// Loads the form; `bits` and `valueLabel` show the register.
    void Load(BitRow& bits, QLabel* valueLabel, std::span<const Captions> channels);

    static void ShowCaptions(std::span<const Captions> captions, bool second);

    void ShowReadBack(std::int32_t readBack) final;

    /// Selects the options that the register's value stands for. Called once, while none is
    /// selected: so each selection is a click, which sets the shared range and polarity.
    virtual void SelectOptions(std::int32_t value) = 0;
    /// What follows the bits besides their labels: captions, and options where the form has it so.
    virtual void FollowBits(std::int32_t value) = 0;

  private:
    bool ReadChcon();
    void RefreshControlBits();
    void RefreshControlOptions();

    BitRow* bits_ = nullptr;
    QLabel* valueLabel_ = nullptr;
};

}  // namespace vx3260
