// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "acquisition/Characterisation.h"
#include "app/StartUp.h"
#include "characterisation/ResultsFolder.h"
#include "cli/commands/Command.h"

namespace vx3260 {

/// characterise: the noise at every range and update rate, into a folder. All registers are
/// restored at the end.
class CharacteriseCommand final : public Command {
  public:
    explicit CharacteriseCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    void AddSettings();
    void AddMeasurement();
    void AddOutput();
    CharacterisationPlan PlanFor(std::int32_t control) const;
    ExitCode Measure(const CommandContext& context, Services& services, ResultsFolder& folder);
    std::string Report(const CharacterisationResults& results) const;

    Converter converter_ = Converter::Main;
    std::vector<std::string> ranges_{"all"};
    std::vector<std::int32_t> words_{13, 69, 255};
    std::vector<Polarity> polarities_{Polarity::Bipolar};
    std::string channel_;  ///< empty for the one that the chip is set to
    std::int64_t count_ = 1000;
    std::int64_t settle_ = DefaultSettle;
    bool calibrate_ = false;
    float referenceVoltage_ = DefaultReferenceVoltage;
    std::string output_;
    bool resume_ = false;
    bool force_ = false;
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
