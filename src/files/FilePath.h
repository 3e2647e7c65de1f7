// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string_view>

namespace vx3260 {

/// A path as the program has them, UTF-8 on every system, for the standard library.
inline std::filesystem::path FilePath(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

}  // namespace vx3260
