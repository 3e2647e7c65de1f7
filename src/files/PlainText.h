// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/// What data files and scripts have in common.
namespace vx3260 {

/// The text after a UTF-8 byte-order mark, if it begins with one.
constexpr std::string_view WithoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return text.starts_with(mark) ? text.substr(mark.size()) : text;
}

/// Whether a character is an ASCII control character, white space included.
constexpr bool IsControl(char c) {
    return (c >= '\0' && c < ' ') || c == '\x7F';
}

}  // namespace vx3260
