// SPDX-License-Identifier: GPL-3.0-or-later
#include "numbers/WholeNumber.h"

#include <charconv>
#include <limits>
#include <system_error>

namespace vx3260 {
namespace {

constexpr std::string_view hexPrefix = "0x";

bool IsHexadecimal(std::string_view text) {
    return text.starts_with(hexPrefix) || text.starts_with("0X");
}

std::optional<std::int64_t> NumberOf(std::string_view digits, int base) {
    using Limits = std::numeric_limits<std::int64_t>;
    const bool negative = digits.starts_with('-');
    std::int64_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number, base);
    if (result.ec == std::errc::invalid_argument || result.ptr != end) {
        return std::nullopt;
    }
    if (result.ec == std::errc::result_out_of_range) {
        return negative ? Limits::min() : Limits::max();
    }
    return number;
}

}  // namespace

std::optional<std::int64_t> DecimalNumber(std::string_view text) {
    return NumberOf(text, 10);
}

std::optional<std::int64_t> WholeNumber(std::string_view text) {
    if (!IsHexadecimal(text)) {
        return DecimalNumber(text);
    }
    const std::string_view digits = text.substr(hexPrefix.size());
    return digits.starts_with('-') ? std::nullopt : NumberOf(digits, 16);
}

bool HasLeadingZero(std::string_view decimal) {
    const std::string_view digits = decimal.substr(decimal.starts_with('-') ? 1 : 0);
    return digits.size() > 1 && digits.front() == '0' && !IsHexadecimal(digits);
}

}  // namespace vx3260
