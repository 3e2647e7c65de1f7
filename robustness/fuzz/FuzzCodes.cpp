// SPDX-License-Identifier: GPL-3.0-or-later
// Data files beside a second parser, written from the description of the format alone.

#include <algorithm>
#include <optional>
#include <vector>

#include "Fuzzing.h"
#include "files/CodeText.h"

using namespace vx3260;
using fuzzing::Require;

namespace {

using Codes = std::vector<std::int32_t>;

constexpr std::string_view spaces = " \t\r";

std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    return lines;
}

std::string_view Trimmed(std::string_view line) {
    const std::size_t first = line.find_first_not_of(spaces);
    return first == std::string_view::npos
               ? std::string_view()
               : line.substr(first, line.find_last_not_of(spaces) - first + 1);
}

std::optional<std::int32_t> DecimalCode(std::string_view digits) {
    const bool negative = digits.substr(0, 1) == "-";
    digits = digits.substr(negative ? 1 : 0);
    if (digits.empty()) {
        return std::nullopt;
    }
    constexpr std::int64_t limit = std::int64_t{1} << 31U;
    std::int64_t magnitude = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        magnitude = std::min(magnitude * 10 + (digit - '0'), limit + 1);
    }
    if (magnitude > (negative ? limit : limit - 1)) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(negative ? -magnitude : magnitude);
}

std::optional<std::int32_t> HexadecimalCode(std::string_view digits) {
    constexpr std::string_view all = "0123456789abcdef0123456789ABCDEF";
    if (digits.empty() || digits.size() > 8) {
        return std::nullopt;
    }
    std::uint32_t bits = 0;
    for (const char digit : digits) {
        const std::size_t place = all.find(digit);
        if (place == std::string_view::npos) {
            return std::nullopt;
        }
        bits = bits << 4U | static_cast<std::uint32_t>(place % 16);
    }
    return static_cast<std::int32_t>(bits);
}

/// Nothing for a text that is to be refused.
std::optional<Codes> ReferenceCodes(std::string_view text, Notation notation) {
    if (text.substr(0, 3) == "\xEF\xBB\xBF") {
        text.remove_prefix(3);
    }
    std::vector<std::string_view> lines = LinesOf(text);
    while (!lines.empty() && Trimmed(lines.back()).empty()) {
        lines.pop_back();
    }
    Codes codes;
    for (const std::string_view line : lines) {
        const auto code = notation == Notation::Decimal ? DecimalCode(Trimmed(line))
                                                        : HexadecimalCode(Trimmed(line));
        if (!code) {
            return std::nullopt;
        }
        codes.push_back(*code);
    }
    return codes.empty() || codes.size() > 32767 ? std::nullopt : std::optional(codes);
}

std::optional<ParsedCodes> Parsed(std::string_view text, Notation notation) {
    try {
        return ParseCodes(text, notation, "input");
    } catch (const BadDataError& error) {
        Require(std::string_view(error.what()).starts_with("input: line "),
                "a refusal names the line");
        return std::nullopt;
    }
}

void CheckNotation(std::string_view text, Notation notation) {
    const std::optional<ParsedCodes> parsed = Parsed(text, notation);
    const std::optional<Codes> expected = ReferenceCodes(text, notation);
    Require(parsed.has_value() == expected.has_value(), "both parsers accept the text or neither");
    if (!parsed) {
        return;
    }
    Require(parsed->codes == *expected, "both parsers find the same codes");
    Require(parsed->warning.empty() == text.ends_with('\n'), "a missing line end is warned of");
    for (const Notation written : {Notation::Decimal, Notation::Hexadecimal}) {
        const std::optional<ParsedCodes> again = Parsed(FormatCodes(*expected, written), written);
        Require(again && again->codes == *expected && again->warning.empty(),
                "written codes are read again");
        Require(written == Notation::Hexadecimal || again->look == Notation::Decimal,
                "written decimal codes look decimal");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckNotation(fuzzing::TextOf(data, size), Notation::Decimal);
    CheckNotation(fuzzing::TextOf(data, size), Notation::Hexadecimal);
    return 0;
}
