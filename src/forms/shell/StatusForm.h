// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "ui/Form.h"

namespace Ui {
class StatusForm;
}

namespace vx3260 {

/// The status register as it was when the form opened.
class StatusForm final : public Form {
    Q_OBJECT

  public:
    explicit StatusForm(Services& services, QWidget* parent = nullptr);
    ~StatusForm() override;

  private:
    std::unique_ptr<Ui::StatusForm> ui_;
};

}  // namespace vx3260
