// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <cstdint>
#include <vector>

#include "acquisition/ConverterReader.h"
#include "analysis/ConversionConditions.h"
#include "forms/data/PositiveEntry.h"
#include "forms/data/ReadingLoop.h"
#include "ui/Form.h"

namespace vx3260 {

/// What the forms that read conversion results share: codes for display until a key is pressed,
/// with a delay between them, and the reference voltage. Which converters are enabled, and how they
/// are set, is read from the chip once, when the form opens.
class ReadingForm : public Form {
    Q_OBJECT

  public:
    /// Stops a reading that runs, then closes.
    void reject() override;

  protected:
    /// The controls that every reading form has.
    struct Controls {
        QLineEdit* delay;
        QLineEdit* reference;
        QLabel* prompt;
        QLineEdit* keyTarget;
        QPushButton* display;
        QPushButton* back;
        QLabel* boardLabel;
    };

    /// All reading forms have them by the same names.
    template <typename Ui>
    static Controls ControlsOf(const Ui& ui) {
        return {ui.DelayText, ui.RefText,  ui.ReadingLabel, ui.Text1,
                ui.Command2,  ui.Command4, ui.BadgeLabel};
    }

    /// `converters` are those without which the form reads nothing. The codes are the first one's;
    /// its twin is read alongside.
    ReadingForm(Services& services, std::vector<Converter> converters, QWidget* parent);

    /// Takes the controls and reads both control registers.
    void Load(const Controls& controls);

    ConverterReader& Reader() { return reader_; }
    ReadingLoop& Loop() { return *loop_; }

    /// How a converter's codes are turned into volts, with the reference voltage of now.
    ConversionConditions Conditions(Converter converter);

    /// Shows the refusal where a converter that is needed is not enabled.
    bool RefusedAsDisabled();

    void ApplyReferenceVoltage() { reference_->Apply(); }

    /// Tells how a reading ended where that is still to be told, and closes where that was asked
    /// for meanwhile.
    void AfterReading(ReadingEnd end);

    /// The next code for display, or ReadTimeout.
    virtual std::int32_t ReadNext() { return reader_.ReadCode(); }

    /// Shows a code that was read for display.
    virtual void ShowCode(std::int32_t code) = 0;

    /// A reading is about to start.
    virtual void PrepareReading() { closeRequested_ = false; }

  private:
    void ReadForDisplay();

    std::vector<Converter> converters_;
    ConverterReader reader_;
    Controls controls_{};
    ReadingLoop* loop_ = nullptr;
    PositiveEntry* reference_ = nullptr;
    bool closeRequested_ = false;
};

/// A box that shows a value while a reading runs: redrawn at once.
void ShowAtOnce(QLineEdit* box, const std::string& text);

}  // namespace vx3260
