// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "cli/commands/Command.h"

namespace vx3260 {

/// set: writes fields of one register, each read back and compared.
class SetCommand final : public Command {
  public:
    explicit SetCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string register_;
    std::vector<std::string> assignments_;
};

}  // namespace vx3260
