// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "forms/config/ControlForm.h"

namespace Ui {
class MainControlForm;
}

namespace vx3260 {

/// Sets the main ADC's control register. The shared input range and polarity follow the options,
/// also if the chip did not accept them.
class MainControlForm final : public ControlForm {
    Q_OBJECT

  public:
    explicit MainControlForm(Services& services, QWidget* parent = nullptr);
    ~MainControlForm() override;

  private:
    void KeepValue(std::int32_t value) override;
    void SelectOptions(std::int32_t value) override;
    void FollowBits(std::int32_t value) override;

    void ConnectOptions();
    Option RangeOption(QRadioButton* button, std::int32_t code);

    std::unique_ptr<Ui::MainControlForm> ui_;
    std::vector<Captions> ranges_;
};

}  // namespace vx3260
