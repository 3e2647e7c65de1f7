// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "cli/commands/Command.h"

namespace vx3260 {

/// report: makes the report of a characterisation anew from its folder.
class ReportCommand final : public Command {
  public:
    explicit ReportCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string folder_;
};

}  // namespace vx3260
