// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "analysis/NoiseAnalysis.h"
#include "cli/commands/AnalysedFile.h"
#include "cli/commands/Command.h"
#include "cli/reports/NoiseReport.h"

namespace vx3260 {

/// noise: the figures of the noise form, of a data file or of a block read from the board.
class NoiseCommand final : public Command {
  public:
    explicit NoiseCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string FileReport(std::ostream& err) const;
    ExitCode RunOnBoard(const CommandContext& context) const;
    std::string Report(const NoiseReportContents& contents) const;

    Converter converter_ = Converter::Main;
    AnalysedFile file_{converter_};
    std::int64_t count_ = DefaultCount;
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
