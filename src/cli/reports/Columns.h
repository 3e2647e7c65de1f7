// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace vx3260 {

/// How many characters a text in UTF-8 has.
inline std::size_t WidthOf(std::string_view text) {
    constexpr unsigned followerMask = 0xC0;
    constexpr unsigned follower = 0x80;
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & followerMask) != follower;
    }));
}

/// The spaces that widen a text to a column of `width` characters; none for a wider text.
inline std::string SpacesBeside(std::string_view text, std::size_t width) {
    return std::string(width - std::min(width, WidthOf(text)), ' ');
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
