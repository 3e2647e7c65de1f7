// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "forms/config/ControlForm.h"

namespace Ui {
class AuxControlForm;
}

namespace vx3260 {

/// Sets the aux ADC's control register. The shared polarity follows the options; the shared input
/// range is set by one of them alone, see ConnectOptions.
class AuxControlForm final : public ControlForm {
    Q_OBJECT

  public:
    explicit AuxControlForm(Services& services, QWidget* parent = nullptr);
    ~AuxControlForm() override;

  private:
    void KeepValue(std::int32_t value) override;
    void SelectOptions(std::int32_t value) override;
    void FollowBits(std::int32_t value) override;

    void ConnectOptions();
    void ShowClickedUnipolar();
    void ShowClickedReference(bool unipolar);

    std::unique_ptr<Ui::AuxControlForm> ui_;
    std::vector<Captions> references_;
};

}  // namespace vx3260
