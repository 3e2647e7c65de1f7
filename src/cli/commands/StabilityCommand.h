// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "analysis/Stability.h"
#include "cli/commands/AnalysedFile.h"
#include "cli/commands/Command.h"

namespace vx3260 {

/// stability: the Allan deviation of a data file over averaging time.
class StabilityCommand final : public Command {
  public:
    explicit StabilityCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string Report(std::ostream& err) const;

    Converter converter_ = Converter::Main;
    AnalysedFile file_{converter_};
    AveragingFactors factors_ = AveragingFactors::Octave;
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
