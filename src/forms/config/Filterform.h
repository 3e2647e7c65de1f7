// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <cstdint>
#include <memory>
#include <string_view>

#include "link/Register.h"
#include "ui/Form.h"

namespace Ui {
class Filterform;
}

namespace vx3260 {

/// Sets the filter register, by its word or by the update rate it stands for. Writes on
/// Enter only.
class Filterform final : public Form {
    Q_OBJECT

  public:
    explicit Filterform(Services& services, QWidget* parent = nullptr);
    ~Filterform() override;

  private:
    void ShowFilterSetting();
    void RefreshFilterBits();
    void ApplyFilterWord();
    void ApplyUpdateRate();

    void Program(std::int32_t filterWord, std::string_view errorText);
    std::int16_t ReadRegister();
    void Refuse(QLineEdit* edit, const QString& reason);
    void ShowExclamation(std::string_view text, const std::string& detail = {});

    std::unique_ptr<Ui::Filterform> ui_;
    Register register_;
};

}  // namespace vx3260
