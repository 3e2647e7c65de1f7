// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "analysis/BlockWarnings.h"
#include "analysis/NoiseAnalysis.h"
#include "app/StartUp.h"
#include "cli/commands/BlockFile.h"
#include "cli/commands/Command.h"

namespace vx3260 {

/// noise: the figures of the noise form, of a data file or of a block read from the board.
class NoiseCommand final : public Command {
  public:
    explicit NoiseCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    CLI::Option* AddFileWithConditions();
    void AddScale(CLI::Option* file);
    CLI::Option* AddRange();
    void ReportFile(const CliStreams& streams) const;
    ExitCode RunOnBoard(const CommandContext& context) const;
    std::string Report(const NoiseAnalysis& analysis, std::span<const BlockWarning> warnings,
                       std::string_view board) const;

    Converter converter_ = Converter::Main;
    BlockFile file_;
    std::int32_t fileControl_ = 0;  ///< what the control register held when FILE was read
    std::int64_t count_ = DefaultCount;
    float referenceVoltage_ = DefaultReferenceVoltage;
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
