// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/commands/Command.h"

namespace vx3260 {

/// check: whether a board answers, and if not, what was seen and what to look at.
class CheckCommand final : public Command {
  public:
    explicit CheckCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;
};

}  // namespace vx3260
