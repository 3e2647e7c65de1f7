// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/commands/Command.h"

namespace vx3260 {

/// ports: the machine's printer ports, and whether each can be claimed.
class PortsCommand final : public Command {
  public:
    explicit PortsCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
