// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vx3260 {

/// The decimal integer that a text stands for: digits, with or without a minus sign before them. A
/// number beyond 64 bits is clamped; the caller's limits refuse it. Empty for any other text.
std::optional<std::int64_t> DecimalNumber(std::string_view text);

/// The same, or what hexadecimal digits after "0x" or "0X" stand for.
std::optional<std::int64_t> WholeNumber(std::string_view text);

/// Whether a decimal number has a leading zero, which marks an octal number elsewhere: 010.
bool HasLeadingZero(std::string_view decimal);

}  // namespace vx3260
