// SPDX-License-Identifier: GPL-3.0-or-later
// Scripts: the lines that are found, and their words as assignments beside a second parser of them.

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <vector>

#include "Fuzzing.h"
#include "configuration/ConfigurationTexts.h"
#include "files/ScriptText.h"
#include "link/Assignment.h"
#include "link/RegisterLookup.h"
#include "numbers/FileErrors.h"

using namespace vx3260;
using fuzzing::Require;

namespace {

std::vector<std::string> WordsOf(const std::string& line) {
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// A number as assignments take it: decimal without leading zeros, or 0x and hexadecimal digits.
std::optional<std::int64_t> ReferenceNumber(std::string_view text) {
    const std::string_view allowed = "0123456789abcdefABCDEF";
    const bool isHexadecimal = text.size() > 2 && text[0] == '0' && (text[1] | 0x20) == 'x';
    std::string digits(text.substr(isHexadecimal ? 2 : 0));
    const std::string_view accepted = allowed.substr(0, isHexadecimal ? allowed.size() : 10);
    if (digits.empty() || digits.find_first_not_of(accepted) != std::string::npos ||
        (!isHexadecimal && digits.size() > 1 && digits[0] == '0')) {
        return std::nullopt;
    }
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    // More digits than any register has bits.
    return digits.size() > 8 ? std::nullopt
                             : std::optional(std::stoll(digits, nullptr, isHexadecimal ? 16 : 10));
}

/// The code that a field is set to by a text; nothing where that is to be refused.
std::optional<std::int32_t> ReferenceCode(const RegisterMap::Field& field, std::string_view text) {
    std::optional<std::int64_t> code;
    for (const RegisterMap::FieldValue& value : field.values) {
        if (value.name == text) {
            code = value.code;
        }
    }
    code = code ? code : ReferenceNumber(text);
    const bool isMode = field.name == "mode";
    const bool isFilter = field.name == "word";
    if (!code || *code > field.LargestCode() || (isMode && *code > 3) || (isFilter && *code < 13)) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(*code);
}

std::optional<std::int32_t> ReferenceCode(const RegisterMap::RegisterDescription& description,
                                          std::string_view text) {
    for (const RegisterMap::Field& field : description.fields) {
        if (text.starts_with(std::string(field.name) + "=")) {
            return ReferenceCode(field, text.substr(field.name.size() + 1));
        }
    }
    return std::nullopt;
}

void CheckAssignment(const RegisterMap::RegisterDescription& description, const std::string& text) {
    const std::optional<std::int32_t> expected = ReferenceCode(description, text);
    try {
        const auto [field, code] = ParseAssignment(description, text);
        Require(code == expected, "the code is the expected one");
        Require(field.CodeIn(field.Insert(AllBits, code)) == code, "the code fits into its bits");
        const std::string again = std::string(field.name) + "=" + FieldValueText(field, code);
        Require(ParseAssignment(description, again).code == code, "the code's text gives the code");
    } catch (const AssignmentError&) {
        Require(!expected, "a valid assignment is accepted");
    }
}

void CheckWords(const std::string& line) {
    for (const std::string& word : WordsOf(line)) {
        for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
            CheckAssignment(description, word);
        }
    }
}

/// How many lines a text has that are neither blank nor a comment.
std::size_t CountCommands(std::string text) {
    text.erase(0, text.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    std::istringstream stream(text);
    std::size_t count = 0;
    for (std::string line; std::getline(stream, line);) {
        const std::size_t start = line.find_first_not_of(" \t\r");
        count += start != std::string::npos && line[start] != '#' ? 1U : 0U;
    }
    return count;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzzing::TextOf(data, size);
    std::vector<ScriptLine> lines;
    try {
        lines = ScriptLines(text, "input");
    } catch (const BadDataError&) {
        return 0;
    }
    Require(lines.size() == CountCommands(std::string(text)), "all commands are found");
    for (const ScriptLine& line : lines) {
        CheckWords(line.text);
    }
    return 0;
}
