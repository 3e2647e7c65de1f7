// SPDX-License-Identifier: GPL-3.0-or-later
#include "numbers/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "numbers/Conversions.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

constexpr int significantDigits = 15;

/// The decimal digits of a positive number, `pointAt` of them before the point. `pointAt` may lie
/// left of the first digit or right of the last one.
struct Decimal {
    std::string digits;
    int pointAt;
};

Decimal ToDecimal(double magnitude) {
    std::array<char, 64> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                      std::chars_format::scientific, significantDigits - 1);
    const std::string_view text(buffer.data(),
                                static_cast<std::size_t>(result.ptr - buffer.data()));
    const auto exponentAt = text.find('e');
    std::string digits(text.substr(0, exponentAt));
    std::erase(digits, '.');
    int exponent = 0;
    const bool negative = text[exponentAt + 1] == '-';
    std::from_chars(text.data() + exponentAt + 2, text.data() + text.size(), exponent);
    return {digits, (negative ? -exponent : exponent) + 1};
}

void RoundHalfAwayFromZero(Decimal& number, int places) {
    const int kept = number.pointAt + places;
    if (kept >= static_cast<int>(number.digits.size())) {
        return;
    }
    if (kept < 0) {
        number.digits.clear();
        return;
    }
    const auto keptSize = static_cast<std::size_t>(kept);
    const bool up = number.digits[keptSize] >= '5';
    number.digits.resize(keptSize);
    if (!up) {
        return;
    }
    const auto lastBelowNine = number.digits.find_last_not_of('9');
    if (lastBelowNine == std::string::npos) {
        number.digits.assign(keptSize + 1, '0');
        number.digits.front() = '1';
        ++number.pointAt;
        return;
    }
    ++number.digits[lastBelowNine];
    std::fill(number.digits.begin() + static_cast<std::ptrdiff_t>(lastBelowNine) + 1,
              number.digits.end(), '0');
}

std::string WholePart(const Decimal& number) {
    if (number.pointAt <= 0) {
        return {};
    }
    std::string whole = number.digits.substr(0, static_cast<std::size_t>(number.pointAt));
    whole.resize(static_cast<std::size_t>(number.pointAt), '0');
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    return whole;
}

std::string FractionPart(const Decimal& number) {
    const auto before = static_cast<std::size_t>(std::max(number.pointAt, 0));
    std::string fraction(static_cast<std::size_t>(std::max(-number.pointAt, 0)), '0');
    if (before < number.digits.size()) {
        fraction += number.digits.substr(before);
    }
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return fraction;
}

/// What a format of FormatNumber asks for, in digits.
struct Places {
    std::size_t minWhole;
    bool point;
    std::size_t minFraction;
    int maxFraction;
};

Places PlacesOf(std::string_view format) {
    const std::size_t pointAt = std::min(format.find('.'), format.size());
    const bool point = pointAt < format.size();
    const std::string_view whole = format.substr(0, pointAt);
    const std::string_view fraction = format.substr(pointAt + (point ? 1 : 0));
    return {
        .minWhole = whole.size() - std::min(whole.find('0'), whole.size()),
        .point = point,
        .minFraction = fraction.find_last_of('0') + 1,
        .maxFraction = static_cast<int>(fraction.size()),
    };
}

template <typename Number>
std::string Shortest(Number value) {
    std::array<char, 32> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

}  // namespace

std::string HexText(std::int32_t value) {
    std::array<char, 8> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                      static_cast<std::uint32_t>(value), 16);
    return UpperCase({buffer.data(), result.ptr});
}

std::string HexText(std::int32_t value, int minDigits) {
    std::string digits = HexText(value);
    const auto width = static_cast<std::size_t>(minDigits);
    digits.insert(0, width - std::min(width, digits.size()), '0');
    return digits;
}

std::string PrefixedHex(std::int32_t value, int minDigits) {
    return "0x" + HexText(value, minDigits);
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        c = UpperCase(c);
    }
    return upper;
}

std::string CodeText(std::int32_t code) {
    return std::to_string(code) + " (" + HexText(code) + ")";
}

std::string CountText(std::int64_t count, std::string_view noun) {
    const bool one = count == 1 || count == -1;
    return std::to_string(count) + " " + std::string(noun) + (one ? "" : "s");
}

std::string DurationText(std::chrono::seconds duration) {
    const std::chrono::hh_mm_ss parts(duration);
    const auto twoDigits = [](auto count) {
        return (count < 10 ? "0" : "") + std::to_string(count);
    };
    const std::string seconds = ":" + twoDigits(parts.seconds().count());
    if (parts.hours().count() == 0) {
        return std::to_string(parts.minutes().count()) + seconds;
    }
    return std::to_string(parts.hours().count()) + ":" + twoDigits(parts.minutes().count()) +
           seconds;
}

std::int32_t HexLiteral(std::string_view text) {
    constexpr std::size_t maxDigits = 8;
    constexpr std::size_t digitsOf16Bits = 4;
    std::uint32_t bits = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, bits, 16);
    if (text.size() > maxDigits || result.ec != std::errc() || result.ptr != end) {
        throw TypeMismatchError();
    }
    if (text.size() <= digitsOf16Bits) {
        return static_cast<std::int16_t>(bits);
    }
    return static_cast<std::int32_t>(bits);
}

std::string ShortestText(float value) {
    return Shortest(value);
}

std::string ShortestText(double value) {
    return Shortest(value);
}

double AsEntered(float value) {
    return TextToDouble(ShortestText(value));
}

std::string FormatNumber(double value, std::string_view format) {
    if (!std::isfinite(value)) {
        throw OverflowError();
    }
    const Places places = PlacesOf(format);
    Decimal number = ToDecimal(std::abs(value));
    RoundHalfAwayFromZero(number, places.maxFraction);
    std::string whole = WholePart(number);
    std::string fraction = FractionPart(number);
    const bool zero = whole.empty() && fraction.empty();
    whole.insert(0, places.minWhole - std::min(places.minWhole, whole.size()), '0');
    fraction.resize(std::max(places.minFraction, fraction.size()), '0');
    return (value < 0 && !zero ? "-" : "") + whole + (places.point ? "." + fraction : "");
}

std::string FixedText(double value, int decimals) {
    const std::string places(static_cast<std::size_t>(decimals), '0');
    return FormatNumber(value, decimals > 0 ? "0." + places : "0");
}

std::string SignificantText(double value, int digits) {
    if (value == 0) {
        return "0";
    }
    const int digitsBeforePoint = static_cast<int>(std::floor(std::log10(std::abs(value)))) + 1;
    return FixedText(value, std::max(0, digits - digitsBeforePoint));
}

VoltsUnit VoltsUnitOf(double volts) {
    constexpr VoltsUnit units[] = {{1, "V"}, {1e-3, "mV"}, {1e-6, "uV"}, {1e-9, "nV"}};
    const double magnitude = std::abs(volts);
    const auto* const last = std::end(units) - 1;
    return magnitude == 0
               ? units[0]
               : *std::find_if(std::begin(units), last, [magnitude](const VoltsUnit& unit) {
                     return magnitude >= unit.volts;
                 });
}

std::string VoltsText(double volts, int digits) {
    const VoltsUnit unit = VoltsUnitOf(volts);
    return SignificantText(volts / unit.volts, digits) + " " + std::string(unit.name);
}

}  // namespace vx3260
