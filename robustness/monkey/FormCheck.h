// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <map>

#include "simulator/SimulatedChip.h"

namespace vx3260::monkey {

/// What a form's named controls look like.
struct FormState {
    struct Control {
        bool enabled;
        bool chosen;  ///< of an option button: whether it is the selected one
    };
    QString name;
    std::map<QString, Control> controls;
    bool showsOptions;  ///< of a register; what they show is then the chip's doing alone
};

FormState StateOf(const QWidget& form);

/// What is wrong with a form in use, beside the same one opened anew over the same board: a
/// control that stayed disabled; an option of a register that is another. Empty if nothing.
QString Differences(const FormState& used, const FormState& fresh);

/// How many registers a form shows bit by bit, but for the status register, which changes with
/// every conversion.
int RegistersIn(const QWidget& form);

/// What a form shows of them that the chip does not hold. Empty if it is right.
QString WrongBits(const QWidget& form, const SimulatedChip& chip);

}  // namespace vx3260::monkey
