// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/commands/Command.h"

namespace vx3260 {

/// registers: what every readable register holds, field by field.
class RegistersCommand final : public Command {
  public:
    explicit RegistersCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
