// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/commands/Command.h"
#include "cli/commands/ConfigurationOptions.h"
#include "cli/commands/TextOutput.h"

namespace vx3260 {

/// save: the chip's settings into a configuration file.
class SaveCommand final : public Command {
  public:
    explicit SaveCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    OutputChoice output_;
    Coefficients coefficients_ = Coefficients::LeaveOut;
};

}  // namespace vx3260
