// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "forms/config/RegisterForm.h"

namespace Ui {
class IOControlForm;
}

namespace vx3260 {

/// Sets the I/O control register, one bit with each option: excitation currents, burnout current
/// and the pins P1 to P4. A failed write leaves the display as it was.
class IOControlForm final : public RegisterForm {
    Q_OBJECT

  public:
    explicit IOControlForm(Services& services, QWidget* parent = nullptr);
    ~IOControlForm() override;

  private:
    /// The buttons of P1 or P2 that depend on each other.
    struct SwitchPin {
        QRadioButton* power;
        QRadioButton* triState;
        QRadioButton* driven;
        QRadioButton* high;
        QRadioButton* low;
        const RegisterMap::Field* function;
        const RegisterMap::Field* status;
    };
    /// The controls of P3 or P4: buttons while it is an output, a label while it is an input.
    struct TwoWayPin {
        QRadioButton* high;
        QRadioButton* low;
        QLabel* level;
        const RegisterMap::Field* direction;
        const RegisterMap::Field* state;
    };

    void KeepValue(std::int32_t value) override;
    void ShowReadBack(std::int32_t readBack) override;

    void ConnectOptions();
    void UpdateDisplay();
    void DecodeOptions();
    void RefreshDisplay();

    static void EnableStatus(const SwitchPin& pin, bool enabled);
    static void EnableLevels(const SwitchPin& pin, bool enabled);
    static void ShowFunction(const SwitchPin& pin, bool power);
    static void ShowDirection(const TwoWayPin& pin, bool output);

    std::unique_ptr<Ui::IOControlForm> ui_;
    std::vector<SwitchPin> switchPins_;  ///< P1, P2
    std::vector<TwoWayPin> twoWayPins_;  ///< P3, P4
};

}  // namespace vx3260
