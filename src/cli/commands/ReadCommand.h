// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "analysis/BlockWarnings.h"
#include "analysis/ConversionConditions.h"
#include "app/StartUp.h"
#include "cli/board/BlockReading.h"
#include "cli/commands/Command.h"
#include "files/CodeFile.h"

namespace vx3260 {

/// read: a block of codes, with times and volts if wanted, to a file or to standard output. A
/// reading that does not complete replaces no file: what was read goes into a new one beside it.
class ReadCommand final : public Command {
  public:
    explicit ReadCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    void AddFormatOptions();
    void RefuseToReplace(const CodeWriter& writer) const;
    bool WritesConditions(const CodeWriter& writer) const;
    std::string TextOf(const BlockReading& reading, std::span<const BlockWarning> warnings,
                       std::string_view board) const;

    Converter converter_ = Converter::Main;
    std::int64_t count_ = DefaultCount;
    std::string output_;
    bool force_ = false;
    bool noConditions_ = false;
    Notation notation_ = Notation::Decimal;
    float referenceVoltage_ = DefaultReferenceVoltage;
    ReportFormat format_ = ReportFormat::Text;
};

}  // namespace vx3260
