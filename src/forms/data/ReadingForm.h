// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include "acquisition/ConverterReader.h"
#include "analysis/ConversionConditions.h"
#include "analysis/forms/ChartControls.h"
#include "analysis/forms/StripChart.h"
#include "forms/data/ReadingLoop.h"
#include "ui/Form.h"
#include "ui/PositiveEntry.h"

namespace vx3260 {

/// What the forms that read conversion results share: codes for display until a key is pressed,
/// with a delay between them, the reference voltage, and charts of the codes. Which converters are
/// enabled, and how they are set, is read from the chip once, when the form opens.
class ReadingForm : public Form {
    Q_OBJECT

  public:
    /// Stops a reading that runs, then closes.
    void reject() override;

  protected:
    /// The controls that every reading form has.
    struct Controls {
        QLabel* heading;
        QLineEdit* delay;
        QLineEdit* reference;
        QLabel* prompt;
        QPushButton* stop;
        QLineEdit* keyTarget;
        QPushButton* display;
        QPushButton* back;
        QLabel* boardLabel;
        ChartControls* chartControls;
        QWidget* chartFrame;
    };

    /// All reading forms have them by the same names.
    template <typename Ui>
    static Controls ControlsOf(const Ui& ui) {
        return {ui.HeadingLabel, ui.DelayText, ui.RefText,   ui.ReadingLabel,
                ui.StopButton,   ui.Text1,     ui.Command2,  ui.Command4,
                ui.BoardLabel,   ui.ChartRow,  ui.ChartFrame};
    }

    /// `converters` are those that must be enabled. The codes are the first one's; the other
    /// converter is read alongside.
    ReadingForm(Services& services, std::vector<Converter> converters, QWidget* parent);

    /// Takes the controls and the charts, one for each of the converters, and reads both control
    /// registers.
    void Load(const Controls& controls, const std::vector<StripChart*>& charts);

    /// A code that was just read for each chart.
    void AddToCharts(std::initializer_list<std::int32_t> codes);

    void ShowCharts() { controls_.chartControls->SetShown(true); }

    ConverterReader& Reader() { return reader_; }
    ReadingLoop& Loop() { return *loop_; }

    /// How a converter's codes are turned into volts, with the present reference voltage.
    ConversionConditions Conditions(Converter converter);

    /// Shows the refusal if a required converter is not enabled; true then.
    bool RefusedAsDisabled();

    void ApplyReferenceVoltage() { reference_->Apply(); }

    /// Reports a time-out, and closes the form if that was requested during the reading.
    void AfterReading(ReadingEnd end);

    /// The next code for display, or ReadTimeout.
    virtual std::int32_t ReadNext() { return reader_.ReadCode(); }

    /// Shows a code that was read for display.
    virtual void ShowCode(std::int32_t code) = 0;

    /// Called before a reading starts.
    virtual void PrepareReading();

  private:
    void ReadForDisplay();
    void SetUpCharts(const std::vector<StripChart*>& charts);
    void UseConditions();

    std::vector<Converter> converters_;
    ConverterReader reader_;
    Controls controls_{};
    ReadingLoop* loop_ = nullptr;
    PositiveEntry* reference_ = nullptr;
    std::vector<StripChart*> charts_;
    bool closeRequested_ = false;
};

/// Shows a value while a reading runs: redraws the line edit immediately.
void ShowAtOnce(QLineEdit* edit, const std::string& text);

}  // namespace vx3260
