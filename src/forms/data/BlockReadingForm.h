// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QProgressBar>
#include <cstdint>
#include <optional>

#include "acquisition/ConditionsRecorder.h"
#include "forms/data/ReadingForm.h"

namespace vx3260 {

/// What the twins ReadMainDataForm and ReadAuxDataForm share: besides the codes for display, a
/// block of codes for the analysis.
class BlockReadingForm : public ReadingForm {
    Q_OBJECT

  protected:
    /// The controls that the twins have besides those of every reading form.
    struct BlockControls {
        QLineEdit* size;
        QLineEdit* currentCode;
        QProgressBar* progress;
        QPushButton* read;
        QPushButton* analyse;
        QLabel* warnings;
    };

    BlockReadingForm(Services& services, Converter converter, QWidget* parent);

    /// Takes the controls, the twins have them by the same names, and reads the chip.
    template <typename Ui>
    void LoadTwin(const Ui& ui) {
        Load({ui.NumCodesText, ui.CurrentCodeText, ui.ReadingProgress, ui.Command1, ui.Command3,
              ui.WarningsLabel});
        ReadingForm::Load(ControlsOf(ui), {ui.Chart});
        On(&Loop(), &ReadingLoop::NextRead, &BlockReadingForm::FollowProgress);
    }

    void ShowCode(std::int32_t code) override;
    void PrepareReading() override;

    /// Called when the block, or its part before a stop, has been read.
    virtual void BlockRead() {}

    virtual void OpenNoiseForm() = 0;

  private:
    void Load(const BlockControls& controls);
    void ReadForAnalysis();
    void AnalyseBlock();
    void FollowBlock(ConditionsRecorder& recorder);
    void FollowProgress();
    std::optional<double> Rate();
    void ShowProgress(int done);
    void ShowWarningsOfBlock();

    CodeBlock Block() { return State().BlockOf(converter_); }

    Converter converter_;
    BlockControls controls_{};
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceProgress_;
};

}  // namespace vx3260
