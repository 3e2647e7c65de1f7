// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace vx3260 {

/// The names of the validators by which completion knows the options that are names of files.
inline constexpr const char* FilesValidator = "files";
inline constexpr const char* FoldersValidator = "folders";

/// For options that are names of files, or folders: refuses an empty one.
inline CLI::Validator NotEmpty(const std::string& validatorName = FilesValidator) {
    return {[](const std::string& name) { return name.empty() ? "the name is empty" : ""; }, "",
            validatorName};
}

}  // namespace vx3260
