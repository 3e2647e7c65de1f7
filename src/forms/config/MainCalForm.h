// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "forms/config/CalibrationForm.h"

namespace Ui {
class MainCalForm;
}

namespace vx3260 {

/// The calibration registers of the main ADC.
class MainCalForm final : public CalibrationForm {
    Q_OBJECT

  public:
    explicit MainCalForm(Services& services, QWidget* parent = nullptr);
    ~MainCalForm() override;

  private:
    std::unique_ptr<Ui::MainCalForm> ui_;
};

}  // namespace vx3260
