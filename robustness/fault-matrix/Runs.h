// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "options/ExitCodes.h"

namespace vx3260::matrix {

/// A command that reaches the board.
struct BoardCommand {
    /// Its words: % stands for each converter in turn, @ for the folder of the files.
    std::string words;
    /// How many waits for data-ready may time out, one after the other.
    int waits = 0;
    /// Whether the command reads back enough to know that the board is there.
    bool verifies = true;
};

/// The commands, once for each converter where that makes a difference.
std::vector<BoardCommand> BoardCommands();

/// Names of commands that no line of BoardCommands has, and that are not known to do without a
/// board.
std::vector<std::string> CommandsLeftOut();

/// How a run ended.
struct RunResult {
    std::optional<ExitCode> code;  ///< empty for one that made too many accesses
    std::string out;
    std::string err;
    std::int64_t accesses = 0;
};

/// Runs a command line on a simulated board with a fault, none where the name is empty.
RunResult Run(const BoardCommand& command, const std::string& fault, const std::string& folder,
              std::int64_t maxAccesses);

/// The faults to try on a command that makes so many accesses on a good board: one with a number at
/// several places of the command.
std::vector<std::string> FaultsFor(std::int64_t accesses);

/// More accesses are a command that does not end: what a good board takes, some times over for what
/// is read again, and the polls of each wait that may time out.
std::int64_t MaxAccesses(const BoardCommand& command, std::int64_t onGoodBoard);

}  // namespace vx3260::matrix
