// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "forms/data/BlockReadingForm.h"

namespace Ui {
class ReadMainDataForm;
}

namespace vx3260 {

/// Reads the main ADC: a block of codes for the analysis, or codes for display.
class ReadMainDataForm final : public BlockReadingForm {
    Q_OBJECT

  public:
    explicit ReadMainDataForm(Services& services, QWidget* parent = nullptr);
    ~ReadMainDataForm() override;

  protected:
    void OpenNoiseForm() override;

  private:
    std::unique_ptr<Ui::ReadMainDataForm> ui_;
};

}  // namespace vx3260
