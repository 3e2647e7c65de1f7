// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "cli/commands/Command.h"

namespace vx3260 {

/// restore: writes a configuration file to the chip, and verifies each register.
class RestoreCommand final : public Command {
  public:
    explicit RestoreCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string file_;
};

}  // namespace vx3260
