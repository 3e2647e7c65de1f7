// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRadioButton>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "app/MessageTexts.h"
#include "link/FieldWrite.h"
#include "link/Register.h"
#include "link/RegisterFields.h"
#include "link/RegisterLookup.h"
#include "ui/BitRow.h"
#include "ui/Form.h"

namespace vx3260 {

/// What a click on an option button does beyond the common steps. Each may be left empty.
struct OptionSteps {
    std::function<void()> always{};          ///< first of all, also while the form is loading
    std::function<void()> beforeReading{};   ///< before the register is read
    std::function<void()> afterReadBack{};   ///< before the comparison
    std::function<void()> onSuccess{};       ///< after a verified write, before the display
    std::function<void()> atTheEnd{};        ///< after the display
    std::function<void()> inPlaceOfWrite{};  ///< replaces the common steps
    bool mismatchEnds = false;               ///< a failed write leaves the display as it was
    std::int32_t alsoGoodWith = 0;           ///< a read-back with this bit set counts as verified
};

/// One option button of a register form: selecting it puts `code` into `field`.
struct Option {
    QRadioButton* button;
    const RegisterMap::Field& field;
    std::int32_t code;
    std::string_view errorText;
    OptionSteps steps{};
};

/// The pattern of the configuration dialogs, once: read the register, change one field, write it,
/// read it back, compare, refresh the display. A form is a table of options and their exceptions.
///
/// A button's click is its becoming selected, by the user or by the program; while FormLoading is
/// set a click writes nothing.
class RegisterForm : public Form {
    Q_OBJECT

  protected:
    RegisterForm(Services& services, const RegisterMap::RegisterAccess& access, QWidget* parent);

    /// Connects the form's options; called once.
    void SetOptions(std::vector<Option> options);

    /// Selects the button of the field's code in `value`; none where no option has it.
    void SelectOption(const RegisterMap::Field& field, std::int32_t value);

    std::int32_t ReadRegister();
    Register& ChipRegister() { return register_; }

    /// Makes the row's cells, each named for the field that its bit belongs to.
    void MakeBits(BitRow& row) const;

    bool Loading() { return State().FormLoading != 0; }
    /// Runs `refresh` with FormLoading set.
    void WhileLoading(const std::function<void()>& refresh);

    /// Begins at the option that is selected, not at the first one.
    void showEvent(QShowEvent* event) override;

    /// Where the form keeps the register as it was read.
    virtual void KeepValue(std::int32_t value) = 0;
    /// Refreshes the display after a write that was read back.
    virtual void ShowReadBack(std::int32_t readBack) = 0;

  private:
    void Program(const Option& option);
    static void FocusSelected(const QWidget& within);

    const RegisterMap::RegisterDescription& description_;
    Register register_;
    std::vector<Option> options_;
};

}  // namespace vx3260
