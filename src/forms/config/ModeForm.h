// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <memory>

#include "forms/config/RegisterForm.h"
#include "ui/BitRow.h"

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

    /// Connects an option that starts a calibration; not called while the form loads.
    void OnCalibration(QRadioButton* option, const std::function<void()>& calibrate);
    void Calibrate(std::int32_t mode);
    bool WaitForTheEnd();
    void CalibrateInternalZero();
    void CalibrateAndReadBack(std::int32_t mode);

    std::unique_ptr<Ui::ModeForm> ui_;
    std::unique_ptr<BitRow> bits_;
    std::array<QRadioButton*, 8> modes_;
};

}  // namespace vx3260
