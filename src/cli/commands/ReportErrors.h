// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "cli/board/BoardSession.h"
#include "options/ExitCodes.h"

namespace vx3260 {

inline constexpr const char* ProgramName = "vx3260-cli";

/// Does `work`. An exception that leaves it is reported on `streams.err`, after `place` where there
/// is one, and becomes its exit code. If the reader of `streams.out` has closed it, nothing is
/// reported.
ExitCode ReportErrors(const CliStreams& streams, const std::string& place,
                      const std::function<ExitCode()>& work);

/// Prints "vx3260-cli: PLACE: TEXT", or without a place "vx3260-cli: TEXT".
void ReportError(std::ostream& err, const std::string& place, const std::string& text);

}  // namespace vx3260
