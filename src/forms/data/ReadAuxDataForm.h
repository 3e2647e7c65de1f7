// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>

#include "forms/data/BlockReadingForm.h"

namespace Ui {
class ReadAuxDataForm;
}

namespace vx3260 {

/// Reads the aux ADC: a block of codes for the analysis, or codes for display. While the
/// temperature sensor is its channel, the form shows the temperature of the code on display, or of
/// the block's mean: degrees Celsius = volts / slope - 273.15, the sensor's voltage being
/// proportional to the absolute temperature.
class ReadAuxDataForm final : public BlockReadingForm {
    Q_OBJECT

  public:
    explicit ReadAuxDataForm(Services& services, QWidget* parent = nullptr);
    ~ReadAuxDataForm() override;

  protected:
    void PrepareReading() override;
    void ShowCode(std::int32_t code) override;
    void BlockRead() override;
    void OpenNoiseForm() override;

  private:
    void ShowTemperature();

    std::unique_ptr<Ui::ReadAuxDataForm> ui_;
    std::optional<double> measuredCode_;
};

}  // namespace vx3260
