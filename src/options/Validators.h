// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace vx3260 {

/// For options that are names of files: refuses an empty one.
inline CLI::Validator NotEmpty() {
    return {[](const std::string& name) { return name.empty() ? "the name is empty" : ""; }, ""};
}

}  // namespace vx3260
