// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace vx3260 {

/// Nearest 16-bit integer, halves to the even neighbour (2.5 gives 2, 3.5 gives 4).
/// Throws OverflowError when the rounded value is outside -32768 to 32767.
std::int16_t ToInt16(double value);

/// Nearest 32-bit integer, halves to the even neighbour.
/// Throws OverflowError when the rounded value is outside -2147483648 to 2147483647.
std::int32_t ToInt32(double value);

/// The decimal number a text stands for: spaces around it, a sign, digits, "." as the decimal
/// point in every locale, an exponent. Throws TypeMismatchError for any other text and
/// OverflowError for a number too large for double precision; one too small is 0.
double TextToDouble(std::string_view text);

/// TextToDouble, then ToInt16.
std::int16_t TextToInt16(std::string_view text);

/// TextToDouble, then ToInt32.
std::int32_t TextToInt32(std::string_view text);

/// a - b. Throws OverflowError when the difference does not fit 32 bits.
std::int32_t Difference(std::int32_t a, std::int32_t b);

/// a x b. Throws OverflowError when the product does not fit 32 bits.
std::int32_t Product(std::int32_t a, std::int32_t b);

}  // namespace vx3260
