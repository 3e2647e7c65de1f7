// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "numbers/FileErrors.h"

namespace vx3260 {

/// How a code is written: decimal with a leading space when it is not negative (" 8388608", "-5"),
/// or upper-case hexadecimal without prefix or leading zeros, a negative code as the eight digits
/// of its two's complement.
enum class Notation { Decimal, Hexadecimal };

/// A block's count is a 16-bit number.
inline constexpr std::size_t MaxCodesInBlock = 32767;

/// A block of codes parsed from a text.
struct ParsedCodes {
    std::vector<std::int32_t> codes;
    std::optional<Notation> look;  ///< NotationByLook of the text
    std::string warning;           ///< why the text is suspicious, for the user; empty if it is not
};

/// The notation that a text's lines have in any case: decimal where each begins with a space or a
/// minus sign, as FormatCodes writes them, hexadecimal where there is a digit A to F. Nothing for
/// other texts.
std::optional<Notation> NotationByLook(std::string_view text);

/// "the lines look like decimal codes": for a text parsed in the other notation than `look`.
std::string OtherNotationText(Notation look);

/// The codes in a text, one per line. Accepts spaces around a code, CR LF line ends, a UTF-8
/// byte-order mark, a missing last line end, empty lines at the end, and lower-case digits.
/// Decimal codes are -2147483648 to 2147483647; hexadecimal ones have one to eight digits, of
/// which 80000000 to FFFFFFFF are negative. Warns of a missing last line end: where a file was cut
/// off, its last code may lack digits.
/// Throws BadDataError, with `source` as the name of the text, for anything else and for less than
/// one or more than MaxCodesInBlock codes.
ParsedCodes ParseCodes(std::string_view text, Notation notation, std::string_view source);

/// The codes as text, one a line, each line ended by LF.
std::string FormatCodes(std::span<const std::int32_t> codes, Notation notation);

}  // namespace vx3260
