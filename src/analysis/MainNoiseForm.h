#pragma once

#include <array>
#include <memory>

#include "analysis/NoiseAnalysis.h"
#include "ui/Form.h"

namespace Ui {
class MainNoiseForm;
}

namespace vx3260 {

/// The noise of the block of main ADC codes, in codes and in volts. Reads range and polarity from
/// the chip when it opens, and leaves the block's statistics in the application state. Throws from
/// its constructor on a block that cannot be analysed.
class MainNoiseForm final : public Form {
    Q_OBJECT

  public:
    explicit MainNoiseForm(Services& services, QWidget* parent = nullptr);
    ~MainNoiseForm() override;

  private:
    NoiseConditions ReadConditions();
    void KeepStatistics(const NoiseAnalysis& analysis);
    void ShowTexts(const NoiseTexts& texts);

    std::unique_ptr<Ui::MainNoiseForm> ui_;
};

}  // namespace vx3260
