// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <cstdint>
#include <memory>

#include "link/Register.h"
#include "ui/BitRow.h"
#include "ui/Form.h"

namespace vx3260 {

/// In what the twins MainCalForm and AuxCalForm differ, besides their controls.
struct CalibrationTraits {
    RegisterMap::RegisterAccess zeroScale;
    RegisterMap::RegisterAccess fullScale;
    int hexDigits;        ///< shown, with leading zeros
    double correction;    ///< added to a negative entry
    double largestEntry;  ///< larger ones are taken for this
    int firstZeroLabel;   ///< number of the most significant bit's label; they count down
    int firstFullLabel;   ///< likewise; they count up
};

/// Shows both calibration registers of one converter and programs them from hexadecimal entries,
/// on Enter and in power-down mode only.
class CalibrationForm : public Form {
    Q_OBJECT

  protected:
    CalibrationForm(Services& services, const CalibrationTraits& traits, QWidget* parent);

    /// The controls of one of the two registers.
    struct Controls {
        QLineEdit* entry;
        QLabel* hexLabel;
    };

    /// Takes the controls, reads both registers and shows them.
    void Load(const Controls& zeroScale, const Controls& fullScale);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// The display is drawn from `value`: what was read at load, or typed last.
    struct Coefficient {
        Register reg;
        double value = 0;
        Controls controls{};
        std::unique_ptr<BitRow> bits{};
    };

    void KeyPressed(Coefficient& coefficient, bool enter);
    void Program(Coefficient& coefficient);
    double TypedValue(const Coefficient& coefficient) const;
    void ShowCoefficient(Coefficient& coefficient) const;
    void RefreshDisplay();

    const CalibrationTraits& traits_;
    Coefficient zeroScale_;
    Coefficient fullScale_;
    Register modeRegister_;
};

}  // namespace vx3260
