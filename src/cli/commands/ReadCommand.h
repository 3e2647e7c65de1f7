// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "cli/commands/Command.h"

namespace vx3260 {

/// read: a block of codes, to a data file or to standard output. A reading that does not complete
/// replaces no file: what was read goes into a new one beside it.
class ReadCommand final : public Command {
  public:
    explicit ReadCommand(CLI::App& program);

    ExitCode Run(const CommandContext& context) override;

  private:
    Converter converter_ = Converter::Main;
    std::int64_t count_ = DefaultCount;
    std::string output_;
    Notation notation_ = Notation::Decimal;
};

}  // namespace vx3260
