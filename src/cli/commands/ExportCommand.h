// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "cli/commands/Command.h"
#include "cli/commands/TextOutput.h"
#include "configuration/FirmwareExport.h"

namespace vx3260 {

/// export: the chip's settings, or those in a configuration file, as writes for firmware.
class ExportCommand final : public Command {
  public:
    explicit ExportCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    std::string file_;  ///< empty for the chip
    OutputChoice output_;
    ExportFormat format_ = ExportFormat::C;
    Coefficients coefficients_ = Coefficients::LeaveOut;
};

}  // namespace vx3260
