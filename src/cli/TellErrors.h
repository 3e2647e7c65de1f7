// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "cli/ExitCodes.h"

namespace vx3260 {

inline constexpr const char* ProgramName = "vx3260-cli";

/// Does `work`. An exception that leaves it is told on `err`, after `place` where there is one, and
/// becomes the exit code that it stands for.
ExitCode TellErrors(std::ostream& err, const std::string& place,
                    const std::function<ExitCode()>& work);

/// Prints "vx3260-cli: PLACE: TEXT", or without a place "vx3260-cli: TEXT".
void Tell(std::ostream& err, const std::string& place, const std::string& text);

}  // namespace vx3260
