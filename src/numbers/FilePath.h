// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace vx3260 {

/// Converts a path, UTF-8 on every system in this program, for the standard library.
inline std::filesystem::path FilePath(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

/// Whether two paths name the same file, which need not exist yet.
inline bool SameFile(std::string_view one, std::string_view other) {
    std::error_code error;
    if (std::filesystem::equivalent(FilePath(one), FilePath(other), error)) {
        return true;
    }
    const auto whole = [&error](std::string_view path) {
        return std::filesystem::weakly_canonical(std::filesystem::absolute(FilePath(path), error),
                                                 error);
    };
    return whole(one) == whole(other);
}

}  // namespace vx3260
