// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ports/OpenPort.h"

namespace vx3260 {

/// What the command line of the forms asks for.
struct EvalRequest {
    PortChoice port;
    std::string file;             ///< a data file to begin with; may be empty
    std::optional<int> exitCode;  ///< the program ends with it, after showing `text`
    std::string text;
};

/// Parses the words after the program's name, in UTF-8. A word that is not an option must name an
/// existing file or hold "/SS" anywhere. A wrong one gives the exit code of a wrong command line
/// and its text; --help and --version give 0 and theirs.
EvalRequest ParseEvalCommandLine(std::vector<std::string> arguments);

}  // namespace vx3260
