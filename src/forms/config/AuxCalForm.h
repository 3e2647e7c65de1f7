// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "forms/config/CalibrationForm.h"

namespace Ui {
class AuxCalForm;
}

namespace vx3260 {

/// The calibration registers of the aux ADC.
class AuxCalForm final : public CalibrationForm {
    Q_OBJECT

  public:
    explicit AuxCalForm(Services& services, QWidget* parent = nullptr);
    ~AuxCalForm() override;

  private:
    std::unique_ptr<Ui::AuxCalForm> ui_;
};

}  // namespace vx3260
