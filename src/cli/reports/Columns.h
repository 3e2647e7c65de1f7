// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace vx3260 {

/// The spaces that widen a text to a column of `width` characters; none for a wider text.
inline std::string SpacesBeside(std::string_view text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ');
}

/// The text at the left of a column.
inline std::string Padded(std::string_view text, std::size_t width) {
    return std::string(text) + SpacesBeside(text, width);
}

/// The text at the right of a column.
inline std::string RightAligned(std::string_view text, std::size_t width) {
    return SpacesBeside(text, width) + std::string(text);
}

}  // namespace vx3260
