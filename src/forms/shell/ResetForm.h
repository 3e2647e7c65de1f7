// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "ui/Form.h"

namespace Ui {
class ResetForm;
}

namespace vx3260 {

/// Resets the chip by its reset line or by a run of ones, and closes. Nothing is read back.
class ResetForm final : public Form {
    Q_OBJECT

  public:
    explicit ResetForm(Services& services, QWidget* parent = nullptr);
    ~ResetForm() override;

    /// The reset that closed the form: "Hardware reset".
    QString Performed() const { return performed_; }

  private:
    void ResetByLine();
    void ResetByOnes();

    std::unique_ptr<Ui::ResetForm> ui_;
    QString performed_;
};

}  // namespace vx3260
