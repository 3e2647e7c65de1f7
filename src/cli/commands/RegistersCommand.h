// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "cli/commands/Command.h"

namespace vx3260 {

/// registers: what the readable registers, or those named, hold, field by field.
class RegistersCommand final : public Command {
  public:
    explicit RegistersCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::vector<std::string> names_;
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
