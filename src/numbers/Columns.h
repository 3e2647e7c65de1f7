// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace vx3260 {

/// The number of characters of a text in UTF-8.
inline std::size_t CharactersOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

/// The spaces that widen a text to a column of `width` characters; none for a wider text.
inline std::string SpacesBeside(std::string_view text, std::size_t width) {
    return std::string(width - std::min(width, CharactersOf(text)), ' ');
}

/// The text at the left of a column.
inline std::string Padded(std::string_view text, std::size_t width) {
    return std::string(text) + SpacesBeside(text, width);
}

/// The text at the right of a column.
inline std::string RightAligned(std::string_view text, std::size_t width) {
    return SpacesBeside(text, width) + std::string(text);
}

/// A caption and its text.
using CaptionedText = std::pair<std::string, std::string>;

/// A line for each, the texts in a column.
std::string CaptionedLines(const std::vector<CaptionedText>& rows);

/// Rows of as many cells as the first one has, each column aligned at the right.
std::string TableText(const std::vector<std::vector<std::string>>& rows);

/// The same, each column aligned at the left; no spaces end a line.
std::string LeftAlignedTable(const std::vector<std::vector<std::string>>& rows);

}  // namespace vx3260
