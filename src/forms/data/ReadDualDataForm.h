// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "forms/data/ReadingForm.h"

namespace Ui {
class ReadDualDataForm;
}

namespace vx3260 {

/// Shows the codes of both converters side by side, in hexadecimal and in volts.
class ReadDualDataForm final : public ReadingForm {
    Q_OBJECT

  public:
    explicit ReadDualDataForm(Services& services, QWidget* parent = nullptr);
    ~ReadDualDataForm() override;

  protected:
    /// A time-out of either converter.
    std::int32_t ReadNext() override;
    void ShowCode(std::int32_t code) override;

  private:
    std::unique_ptr<Ui::ReadDualDataForm> ui_;
};

}  // namespace vx3260
