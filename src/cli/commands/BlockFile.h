// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "cli/board/BoardSession.h"
#include "files/CodeText.h"

namespace vx3260 {

/// The codes of a data file that is to be analysed. Throws as LoadCodes does, and BadDataError for
/// a code that is the value of a time-out. A warning about the file is printed to `err`.
std::vector<std::int32_t> LoadBlock(const std::string& path, Notation notation, std::ostream& err);

/// For commands that work on a file and need no board: opens it only where its status is requested.
void OpenForStatus(const CommandContext& context);

}  // namespace vx3260
