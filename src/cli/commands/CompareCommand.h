// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "cli/commands/Command.h"

namespace vx3260 {

/// compare: the fields in which a configuration file differs from the chip or from another file.
class CompareCommand final : public Command {
  public:
    explicit CompareCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string file_;
    std::string otherFile_;  ///< empty for the chip
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
