// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "cli/commands/BlockFile.h"
#include "cli/commands/Command.h"

namespace vx3260 {

/// histogram: how often the codes of a data file occur.
class HistogramCommand final : public Command {
  public:
    explicit HistogramCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string Report(const CliStreams& streams) const;

    Converter converter_ = Converter::Main;
    BlockFile file_;
    std::int64_t maxBins_ = 0;  ///< 0: what suits the format
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
