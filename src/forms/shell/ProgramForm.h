// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "ui/Form.h"

namespace Ui {
class ProgramForm;
}

namespace vx3260 {

/// The menu of the register forms. The filter form opens in power-down mode only.
class ProgramForm final : public Form {
    Q_OBJECT

  public:
    explicit ProgramForm(Services& services, QWidget* parent = nullptr);
    ~ProgramForm() override;

  private:
    void OpenFilterform();

    std::unique_ptr<Ui::ProgramForm> ui_;
};

}  // namespace vx3260
