// SPDX-License-Identifier: GPL-3.0-or-later
#include "numbers/Conversions.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <system_error>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

template <typename Integer, typename Wide>
Integer Fit(Wide value) {
    constexpr Wide lowest{std::numeric_limits<Integer>::min()};
    constexpr Wide highest{std::numeric_limits<Integer>::max()};
    if (!(value >= lowest && value <= highest)) {
        throw OverflowError();
    }
    return static_cast<Integer>(value);
}

std::string_view WithoutSpaces(std::string_view text) {
    constexpr std::string_view spaces = " \t\r\n";
    const auto first = text.find_first_not_of(spaces);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(spaces) - first + 1);
}

/// Of a number that double precision cannot hold: whether it is too small rather than too large.
bool IsTooSmall(std::string_view digits) {
    std::istringstream stream{std::string(digits)};
    stream.imbue(std::locale::classic());
    double value = 1;
    stream >> value;
    return std::abs(value) < 1;
}

}  // namespace

// nearbyint rounds halves to even in the rounding mode every thread starts with.
std::int16_t ToInt16(double value) {
    return Fit<std::int16_t>(std::nearbyint(value));
}

std::int32_t ToInt32(double value) {
    return Fit<std::int32_t>(std::nearbyint(value));
}

double TextToDouble(std::string_view text) {
    std::string_view digits = WithoutSpaces(text);
    // from_chars rejects a plus sign and accepts "inf" and "nan".
    if (digits.starts_with('+') && !digits.starts_with("+-")) {
        digits.remove_prefix(1);
    }
    if (digits.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        throw TypeMismatchError();
    }
    double value = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value);
    const bool outOfRange = result.ec == std::errc::result_out_of_range;
    if (result.ptr != end || (result.ec != std::errc() && !outOfRange)) {
        throw TypeMismatchError();
    }
    if (outOfRange && !IsTooSmall(digits)) {
        throw OverflowError();
    }
    return outOfRange ? 0 : value;
}

std::int16_t TextToInt16(std::string_view text) {
    return ToInt16(TextToDouble(text));
}

std::int32_t TextToInt32(std::string_view text) {
    return ToInt32(TextToDouble(text));
}

std::int32_t Difference(std::int32_t a, std::int32_t b) {
    return Fit<std::int32_t>(std::int64_t{a} - b);
}

std::int32_t Product(std::int32_t a, std::int32_t b) {
    return Fit<std::int32_t>(std::int64_t{a} * b);
}

}  // namespace vx3260
