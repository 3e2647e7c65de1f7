// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace vx3260 {

/// The names of the validators by which completion knows the options that are names of files.
inline constexpr const char* FilesValidator = "files";
inline constexpr const char* FoldersValidator = "folders";

/// For options that are names of files, or of folders: refuses an empty one.
inline CLI::Validator FileName(const std::string& validatorName = FilesValidator) {
    return {[](const std::string& name) { return name.empty() ? "the name is empty" : ""; }, "",
            validatorName};
}

inline CLI::Validator FolderName() {
    return FileName(FoldersValidator);
}

}  // namespace vx3260
