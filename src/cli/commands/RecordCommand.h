// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "acquisition/Recording.h"
#include "app/StartUp.h"
#include "cli/commands/Command.h"
#include "files/RecordingFile.h"

namespace vx3260 {

/// Where a recording goes on in a new file. Both empty: nowhere.
struct RotationRule {
    std::optional<double> seconds{};
    std::optional<std::int64_t> bytes{};
};

/// record: conversions into files, for as long as wanted, through time-outs and unplugged cables.
class RecordCommand final : public Command {
  public:
    explicit RecordCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    void AddEnd();
    void AddFiles();
    RecordingPlan PlanFrom(const RecordingFile& file) const;
    ExitCode ExitCodeFor(RecordingEnd end, const RecordingProgress& progress) const;

    std::vector<Converter> converters_{Converter::Main};
    std::string output_;
    std::optional<double> duration_;  ///< seconds
    std::optional<std::int64_t> count_;
    std::optional<double> every_;  ///< seconds
    RotationRule rotation_;
    bool append_ = false;
    bool force_ = false;
    bool resetOnTimeout_ = false;
    float referenceVoltage_ = DefaultReferenceVoltage;
};

}  // namespace vx3260
