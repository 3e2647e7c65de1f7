// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "cli/commands/Command.h"

namespace vx3260 {

/// calibrate: lets the chip calibrate the enabled converters and shows what that changed.
class CalibrateCommand final : public Command {
  public:
    explicit CalibrateCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string kind_;
};

}  // namespace vx3260
