// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/commands/Command.h"
#include "recording/RecordingSession.h"

namespace vx3260 {

/// record: conversions into files, for as long as wanted, through time-outs and unplugged cables.
class RecordCommand final : public Command {
  public:
    explicit RecordCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    void AddEnd();
    void AddFiles();
    ExitCode ExitCodeFor(RecordingEnd end, const RecordingProgress& progress) const;

    RecordingRequest request_;
    bool append_ = false;
    bool force_ = false;
};

}  // namespace vx3260
