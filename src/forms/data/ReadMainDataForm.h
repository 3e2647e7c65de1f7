#pragma once

#include <QElapsedTimer>
#include <cstdint>
#include <memory>

#include "acquisition/ConverterReader.h"
#include "forms/data/ReadingLoop.h"
#include "ui/Form.h"

namespace Ui {
class ReadMainDataForm;
}

namespace vx3260 {

/// Reads the main ADC: a block of codes for the analysis, or codes for display until a key is
/// pressed. Which converters are enabled is read from the chip once, when the form opens.
class ReadMainDataForm final : public Form {
    Q_OBJECT

  public:
    explicit ReadMainDataForm(Services& services, QWidget* parent = nullptr);
    ~ReadMainDataForm() override;

    /// Stops a reading that runs, then closes.
    void reject() override;

  private:
    void ReadForAnalysis();
    void ReadForDisplay();
    void AnalyseBlock();
    void TakeReferenceVoltage();
    void ShowReferenceVoltage();
    void FollowProgress();

    bool RefusedAsDisabled();
    void ShowCode(std::int32_t code);
    void AfterReading(ReadingEnd end);

    std::unique_ptr<Ui::ReadMainDataForm> ui_;
    ConverterReader reader_;
    ReadingLoop* loop_;
    QElapsedTimer sinceProgress_;
    bool closeRequested_ = false;
};

}  // namespace vx3260
