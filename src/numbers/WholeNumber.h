// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vx3260 {

/// The number that decimal digits stand for, after a minus sign or not. One beyond 64 bits becomes
/// the largest or the smallest there is: it is for the caller's limits to refuse. Nothing for any
/// other text.
std::optional<std::int64_t> DecimalNumber(std::string_view text);

/// The same, or what hexadecimal digits after "0x" or "0X" stand for.
std::optional<std::int64_t> WholeNumber(std::string_view text);

/// Whether a decimal number begins with a zero that is not all of it, as octal ones do elsewhere.
bool HasLeadingZero(std::string_view decimal);

}  // namespace vx3260
