// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "cli/commands/Command.h"

namespace vx3260 {

/// script: the commands in a file, one a line, all on one board.
class ScriptCommand final : public Command {
  public:
    explicit ScriptCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string file_;
};

}  // namespace vx3260
