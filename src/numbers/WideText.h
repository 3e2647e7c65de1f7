// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace vx3260 {

/// Conversions between UTF-8, used in the program, and UTF-16, used by Windows. Invalid sequences
/// become U+FFFD.
std::wstring ToWide(std::string_view text);
std::string ToUtf8(std::wstring_view text);

/// From the code page of the system's 8-bit functions.
std::string CodePageToUtf8(std::string_view text);

}  // namespace vx3260
