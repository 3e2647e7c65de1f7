// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/RegisterForm.h"

#include <QGroupBox>
#include <QScopeGuard>
#include <QShowEvent>
#include <QString>
#include <algorithm>
#include <utility>

#include "ui/KeyPresses.h"

namespace vx3260 {
namespace {

void Do(const std::function<void()>& step) {
    if (step) {
        step();
    }
}

/// What each bit of a register belongs to, from bit `bits` - 1 down to bit 0; empty where none.
std::vector<QString> BitNames(std::span<const RegisterMap::Field> fields, int bits) {
    std::vector<QString> names;
    for (int bit = bits - 1; bit >= 0; --bit) {
        const auto field = std::find_if(fields.begin(), fields.end(),
                                        [bit](const auto& f) { return (f.mask >> bit & 1) != 0; });
        names.push_back(field == fields.end() ? QString() : QString::fromUtf8(field->title));
    }
    return names;
}

}  // namespace

RegisterForm::RegisterForm(Services& services, const RegisterMap::RegisterAccess& access,
                           QWidget* parent)
    : Form(services, parent),
      description_(RegisterMap::DescriptionOf(access)),
      register_(services.port, services.state.PortAddress, access) {}

void RegisterForm::SetOptions(std::vector<Option> options) {
    options_ = std::move(options);
    for (const Option& option : options_) {
        OnSelected(option.button, [this, &option] {
            Do(option.steps.always);
            if (Loading()) {
                return;
            }
            if (option.steps.inPlaceOfWrite) {
                option.steps.inPlaceOfWrite();
                FocusSelected(*option.button->parentWidget());
            } else {
                Program(option);
            }
        });
    }
    // Selecting an option writes the chip, so arrow keys only move the focus.
    for (const QWidget* const frame : findChildren<QGroupBox*>()) {
        const auto buttons =
            frame->findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly);
        MoveFocusByArrows({buttons.begin(), buttons.end()});
    }
}

void RegisterForm::Program(const Option& option) {
    const OptionSteps& steps = option.steps;
    Do(steps.beforeReading);
    const FieldWrite write = WriteField(register_, option.field, option.code);
    KeepValue(write.before);
    Do(steps.afterReadBack);
    if (write.Verified() || (write.readBack & steps.alsoGoodWith) != 0) {
        Do(steps.onSuccess);
    } else {
        ShowMessage({.text = std::string(option.errorText),
                     .icon = MessageIcon::Exclamation,
                     .detail = MessageTexts::MismatchDetail(Shared().port, description_,
                                                            write.wanted, write.readBack)});
        if (steps.mismatchEnds) {
            return;
        }
    }
    ShowReadBack(write.readBack);
    Do(steps.atTheEnd);
}

void RegisterForm::SelectOption(const RegisterMap::Field& field, std::int32_t value) {
    const auto found = std::find_if(options_.begin(), options_.end(), [&](const Option& option) {
        return option.field.mask == field.mask && option.code == field.CodeIn(value);
    });
    if (found != options_.end()) {
        found->button->setChecked(true);
    }
}

std::int32_t RegisterForm::ReadRegister() {
    return register_.ReadValue();
}

void RegisterForm::MakeBits(BitRow& row) const {
    row.MakeCells(BitNames(description_.fields, register_.WordLength));
}

/// Gives the focus to the first selected option.
void RegisterForm::FocusSelected(const QWidget& within) {
    const QList<QRadioButton*> buttons = within.findChildren<QRadioButton*>();
    const auto selected = std::find_if(buttons.begin(), buttons.end(),
                                       [](const QRadioButton* b) { return b->isChecked(); });
    if (selected != buttons.end()) {
        (*selected)->setFocus();
    }
}

void RegisterForm::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (!event->spontaneous()) {
        FocusSelected(*this);
    }
}

void RegisterForm::WhileLoading(const std::function<void()>& refresh) {
    std::int16_t& loading = State().FormLoading;
    const auto loaded = qScopeGuard([&loading, before = loading] { loading = before; });
    loading = 1;
    refresh();
}

}  // namespace vx3260

#include "moc_RegisterForm.cpp"
