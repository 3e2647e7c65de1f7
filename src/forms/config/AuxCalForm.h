// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/config/CalibrationForm.h"

namespace vx3260 {

/// The calibration registers of the aux ADC.
class AuxCalForm final : public CalibrationForm {
    Q_OBJECT

  public:
    explicit AuxCalForm(Services& services, QWidget* parent = nullptr);
};

}  // namespace vx3260
