// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "cli/commands/Command.h"

namespace vx3260 {

/// The commands, of which a command line names one.
class CommandSet {
  public:
    /// Adds them to the parser, which must have no options yet and outlives the set.
    explicit CommandSet(CLI::App& parser);

    /// One more, made for the same parser.
    void Add(std::unique_ptr<Command> command) { commands_.push_back(std::move(command)); }

    /// The command that the parsed command line asks for.
    Command& Chosen() const;

  private:
    std::vector<std::unique_ptr<Command>> commands_;
};

}  // namespace vx3260
