// SPDX-License-Identifier: GPL-3.0-or-later
#include "FormCheck.h"

#include <QLabel>
#include <QRadioButton>
#include <algorithm>

#include "support/SimulatedBench.h"
#include "ui/BitRow.h"

namespace vx3260::monkey {
namespace {

struct ShownRegister {
    const char* form;
    const char* row;
    unsigned address;
};

/// By the chip's own addresses.
constexpr ShownRegister shownRegisters[] = {
    {"ModeForm", "Bits", test::modeAt},
    {"MainControlForm", "Bits", test::mainControlAt},
    {"AuxControlForm", "Bits", test::auxControlAt},
    {"Filterform", "Bits", test::filterAt},
    {"IOControlForm", "Bits", test::ioControlAt},
    {"MainCalForm", "zeroBits", test::mainZeroScaleAt},
    {"MainCalForm", "fullBits", test::mainFullScaleAt},
    {"AuxCalForm", "zeroBits", test::auxZeroScaleAt},
    {"AuxCalForm", "fullBits", test::auxFullScaleAt},
};

std::uint32_t ValueIn(const BitRow& row) {
    std::uint32_t value = 0;
    for (const QLabel* const cell : row.Cells()) {
        value = value << 1U | (cell->text() == QLatin1String("1") ? 1U : 0U);
    }
    return value;
}

bool IsOfForm(const QWidget& control) {
    const QString name = control.objectName();
    return !name.isEmpty() && !name.startsWith(QLatin1String("qt_"));
}

}  // namespace

FormState StateOf(const QWidget& form) {
    FormState state{form.objectName(), {}, form.inherits("vx3260::RegisterForm")};
    for (const QWidget* const control : form.findChildren<QWidget*>()) {
        if (IsOfForm(*control)) {
            const auto* const option = qobject_cast<const QRadioButton*>(control);
            state.controls[control->objectName()] = {control->isEnabledTo(&form),
                                                     option != nullptr && option->isChecked()};
        }
    }
    return state;
}

QString Differences(const FormState& used, const FormState& fresh) {
    QString wrong;
    for (const auto& [name, control] : fresh.controls) {
        const auto before = used.controls.find(name);
        if (before == used.controls.end()) {
            continue;
        }
        if (control.enabled && !before->second.enabled) {
            wrong += QStringLiteral(" %1 stayed disabled;").arg(name);
        }
        if (used.showsOptions && control.chosen != before->second.chosen) {
            wrong +=
                QStringLiteral(" %1 was %2 selected;")
                    .arg(name, control.chosen ? QStringLiteral("not") : QStringLiteral("still"));
        }
    }
    return wrong.isEmpty() ? wrong : fresh.name + QLatin1Char(':') + wrong;
}

int RegistersIn(const QWidget& form) {
    return static_cast<int>(
        std::ranges::count(shownRegisters, form.objectName(),
                           [](const ShownRegister& shown) { return QLatin1String(shown.form); }));
}

QString WrongBits(const QWidget& form, const SimulatedChip& chip) {
    QString wrong;
    for (const ShownRegister& shown : shownRegisters) {
        if (form.objectName() != QLatin1String(shown.form)) {
            continue;
        }
        const auto* const row = form.findChild<const BitRow*>(QLatin1String(shown.row));
        if (row == nullptr) {
            return form.objectName() + QStringLiteral(" has no ") + QLatin1String(shown.row);
        }
        const std::uint32_t value = ValueIn(*row);
        if (value != chip.Contents(shown.address)) {
            wrong +=
                QStringLiteral("%1 shows %2 in %3, the register holds %4 ")
                    .arg(form.objectName(), QString::number(value, 16), QLatin1String(shown.row),
                         QString::number(chip.Contents(shown.address), 16));
        }
    }
    return wrong;
}

}  // namespace vx3260::monkey
