// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "Runs.h"

namespace vx3260::matrix {

/// The bytes of the files below a folder, by their paths in it.
using Files = std::map<std::string, std::string>;

Files FilesIn(const std::string& folder);

/// Makes a folder that holds `present` hold these files again, and no others.
void PutBack(const std::string& folder, const Files& files, const Files& present);

/// What is wrong with the files after a run; nothing where each is as it was, or new and complete
/// where the run was to write it: a recording and a characterisation also where the run failed.
std::vector<std::string> WrongFiles(const std::string& folder, const Files& before,
                                    const Files& after, const BoardCommand& command,
                                    const RunResult& result);

}  // namespace vx3260::matrix
