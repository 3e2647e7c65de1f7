// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <cstdint>
#include <memory>

#include "link/Converter.h"
#include "link/Register.h"
#include "ui/BitRow.h"
#include "ui/Form.h"

namespace Ui {
class CalibrationForm;
}

namespace vx3260 {

/// The differences between the twins MainCalForm and AuxCalForm.
struct CalibrationTraits {
    Converter converter;
    double correction;  ///< added to a negative entry
};

/// Shows both calibration registers of one converter and programs them from hexadecimal entries,
/// on Enter and in power-down mode only.
class CalibrationForm : public Form {
    Q_OBJECT

  public:
    ~CalibrationForm() override;

  protected:
    /// The traits outlive the form.
    CalibrationForm(Services& services, const CalibrationTraits& traits, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// The display is drawn from `value`: what was read at load, or typed last.
    struct Coefficient {
        RegisterMap::RegisterAccess access;
        Register reg;
        QLineEdit* entry = nullptr;
        QLabel* hexLabel = nullptr;
        BitRow* bits = nullptr;
        double value = 0;
    };

    void SetUp(Coefficient& coefficient, const QString& name);
    void NameControls();
    void KeyPressed(Coefficient& coefficient, bool enter);
    void Program(Coefficient& coefficient);
    double TypedValue(const Coefficient& coefficient) const;
    void ShowCoefficient(const Coefficient& coefficient) const;
    void RefreshDisplay();

    std::unique_ptr<Ui::CalibrationForm> ui_;
    const CalibrationTraits& traits_;
    Coefficient zeroScale_;
    Coefficient fullScale_;
    Register modeRegister_;
};

}  // namespace vx3260
