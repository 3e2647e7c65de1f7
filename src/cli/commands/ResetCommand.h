// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "cli/commands/Command.h"

namespace vx3260 {

/// reset: by the reset line or over the serial interface.
class ResetCommand final : public Command {
  public:
    explicit ResetCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string kind_;
};

}  // namespace vx3260
