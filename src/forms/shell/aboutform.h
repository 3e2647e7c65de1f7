// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "ui/Form.h"

namespace Ui {
class aboutform;
}

namespace vx3260 {

/// Title, version and credits; starts the system-information program.
class aboutform final : public Form {
    Q_OBJECT

  public:
    explicit aboutform(Services& services, QWidget* parent = nullptr);
    ~aboutform() override;

  private:
    void ShowSystemInformation();

    std::unique_ptr<Ui::aboutform> ui_;
};

}  // namespace vx3260
