// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace vx3260 {

/// Upper-case hexadecimal digits without prefix or leading zeros; a negative value as the eight
/// digits of its two's complement.
std::string HexText(std::int32_t value);

/// The same with leading zeros up to `minDigits` digits.
std::string HexText(std::int32_t value, int minDigits);

/// HexText after "0x".
std::string PrefixedHex(std::int32_t value, int minDigits = 1);

/// The capital of a letter a to z; any other character as it is.
constexpr char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
std::string UpperCase(std::string_view text);

/// A code in both notations: "8388608 (800000)".
std::string CodeText(std::int32_t code);

/// "1 code", "200 codes": the plural of `noun` is made with an s.
std::string CountText(std::int64_t count, std::string_view noun);

/// Minutes and seconds, "2:41", with hours where there are any: "1:02:41". Not for negative times.
std::string DurationText(std::chrono::seconds duration);

/// The number that one to eight hexadecimal digits stand for, counted as typed: up to four are a
/// signed 16-bit value (8000 is -32768), five and more a signed 32-bit one. Throws
/// TypeMismatchError for any other text: an empty one, a sign, a space, a ninth digit.
std::int32_t HexLiteral(std::string_view text);

/// The shortest decimal text that reads back as the same single-precision number: 0.02 is "0.02".
/// Large and small ones have an exponent: 1e-05.
std::string ShortestText(float value);

/// The same of a double-precision number.
std::string ShortestText(double value);

/// The shortest decimal number of the same single-precision value: 2.56, not 2.55999994.
double AsEntered(float value);

/// A number laid out by a format of "#", "0" and one ".", such as "#.##", "00.00" or "0.###".
/// A "0" place always prints a digit, a "#" place prints nothing where there is no digit; the "."
/// of the format is always printed, and is a point in every locale. The value is taken to 15
/// significant digits and rounded half away from zero to the places after the point.
/// Throws OverflowError for a value that is not finite.
std::string FormatNumber(double value, std::string_view format);

/// A number with that many decimals and a point in every locale: 2.5 with 2 is "2.50". Throws
/// OverflowError for a value that is not finite, as the two below do.
std::string FixedText(double value, int decimals);

/// A number to that many significant digits, never with an exponent; digits before the point are
/// not dropped: 0.00123456 with 3 is "0.00123", 123456 with 3 is "123456".
std::string SignificantText(double value, int digits);

struct VoltsUnit {
    double volts;
    std::string_view name;
};

/// The largest of nV, uV, mV and V that leaves a voltage a digit before the point; nV for smaller
/// ones and V for 0.
VoltsUnit VoltsUnitOf(double volts);

/// A voltage to that many significant digits in VoltsUnitOf it: "4.31 uV".
std::string VoltsText(double volts, int digits);

}  // namespace vx3260
