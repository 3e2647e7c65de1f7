// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "forms/config/RegisterForm.h"

namespace Ui {
class ModeForm;
}

namespace vx3260 {

/// Sets the mode register: mode of operation, oscillator, channel configuration, buffering. Starts
/// the calibrations and waits for their end, which blocks the form.
class ModeForm final : public RegisterForm {
    Q_OBJECT

  public:
    explicit ModeForm(Services& services, QWidget* parent = nullptr);
    ~ModeForm() override;

  private:
    void KeepValue(std::int32_t value) override;
    void ShowReadBack(std::int32_t readBack) override;

    void ConnectOptions();
    void RefreshBitLabels();
    void RefreshModeForm();

    /// Asks for the input that the calibration needs, starts it, waits for its end and shows the
    /// mode register, whose mode the chip changes by itself.
    void Calibrate(std::int32_t mode);
    bool WaitForCalibrationEnd();
    void ShowCalibrationEnd(std::int32_t mode, bool done);

    std::unique_ptr<Ui::ModeForm> ui_;
};

}  // namespace vx3260
