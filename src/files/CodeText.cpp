// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/CodeText.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "files/PlainText.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr std::ptrdiff_t maxHexDigits = 8;

bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

bool IsPrintable(char c) {
    return c >= ' ' && c <= '~';
}

/// Control characters never occur in a text. Bytes above 127 may, in some encoding.
bool IsBinary(char c) {
    return IsControl(c) && !IsSpace(c);
}

std::string_view WithoutSpaces(std::string_view line) {
    const auto* const first = std::find_if_not(line.begin(), line.end(), IsSpace);
    const auto last = std::find_if_not(line.rbegin(), line.rend(), IsSpace).base();
    return first < last ? std::string_view(first, last) : std::string_view();
}

std::string Quoted(std::string_view text) {
    constexpr std::size_t maxShown = 40;
    std::string quoted = "\"";
    for (const char c : text.substr(0, maxShown)) {
        quoted +=
            IsPrintable(c) ? std::string(1, c) : "\\x" + HexText(static_cast<unsigned char>(c), 2);
    }
    return quoted + (text.size() > maxShown ? "...\"" : "\"");
}

std::string_view NotationName(Notation notation) {
    return notation == Notation::Decimal ? "decimal" : "hexadecimal";
}

/// Where a code ends and what went wrong with it.
struct ParsedCode {
    const char* end;
    std::errc error;
};

ParsedCode ParseCode(const char* first, const char* last, Notation notation, std::int32_t& code) {
    if (notation == Notation::Decimal) {
        const auto result = std::from_chars(first, last, code);
        return {result.ptr, result.ec};
    }
    std::uint32_t bits = 0;
    const auto result = std::from_chars(first, last, bits, 16);
    code = static_cast<std::int32_t>(bits);
    const bool tooLong = result.ec == std::errc() && result.ptr - first > maxHexDigits;
    return {result.ptr, tooLong ? std::errc::result_out_of_range : result.ec};
}

/// Parses in one pass. The cause of a fault is only determined for a line that is not a code.
class CodeParser {
  public:
    CodeParser(std::string_view text, Notation notation, std::string_view source)
        : position_(text.data()),
          end_(text.data() + text.size()),
          notation_(notation),
          source_(source) {}

    std::vector<std::int32_t> Parse() {
        std::vector<std::int32_t> codes;
        codes.reserve(MaxCodesInBlock);
        for (; position_ != end_; ++line_) {
            const char* const lineStart = position_;
            SkipSpaces();
            if (AtLineEnd()) {
                SkipBlankLines();
                break;
            }
            if (codes.size() == MaxCodesInBlock) {
                Refuse("more than the " + std::to_string(MaxCodesInBlock) +
                       " codes that a block can have");
            }
            codes.push_back(CodeOfLine(lineStart));
            SkipLineEnd();
        }
        if (codes.empty()) {
            throw BadDataError(std::string(source_) + ": line 1: holds no codes");
        }
        return codes;
    }

  private:
    bool AtLineEnd() const { return position_ == end_ || *position_ == '\n'; }

    void SkipSpaces() {
        while (position_ != end_ && IsSpace(*position_)) {
            ++position_;
        }
    }

    void SkipLineEnd() {
        if (position_ != end_) {
            ++position_;
        }
    }

    /// Empty lines are accepted at the end of the text only.
    void SkipBlankLines() {
        const auto isSpaceOrLineEnd = [](char c) { return c == '\n' || IsSpace(c); };
        if (!std::all_of(position_, end_, isSpaceOrLineEnd)) {
            Refuse("a blank line where a code is expected");
        }
        position_ = end_;
    }

    std::int32_t CodeOfLine(const char* lineStart) {
        std::int32_t code = 0;
        const ParsedCode parsed = ParseCode(position_, end_, notation_, code);
        position_ = parsed.end;
        SkipSpaces();
        if (parsed.error != std::errc() || !AtLineEnd()) {
            RefuseLine({lineStart, std::find(lineStart, end_, '\n')}, parsed.error);
        }
        return code;
    }

    [[noreturn]] void RefuseLine(std::string_view line, std::errc error) const {
        if (std::any_of(line.begin(), line.end(), IsBinary)) {
            Refuse("binary data, not a text: " + Quoted(line));
        }
        const std::string code = Quoted(WithoutSpaces(line));
        if (error == std::errc::result_out_of_range && AtLineEnd()) {
            Refuse(code + " does not fit into 32 bits");
        }
        Refuse(code + " is not a " + std::string(NotationName(notation_)) + " code");
    }

    [[noreturn]] void Refuse(const std::string& reason) const {
        throw BadDataError(std::string(source_) + ": line " + std::to_string(line_) + ": " +
                           reason);
    }

    const char* position_;
    const char* end_;
    Notation notation_;
    std::string_view source_;
    std::size_t line_ = 1;
};

char* FormatHexadecimal(char* first, char* last, std::int32_t code) {
    char* const end = std::to_chars(first, last, static_cast<std::uint32_t>(code), 16).ptr;
    std::transform(first, end, first, [](char digit) { return UpperCase(digit); });
    return end;
}

char* FormatDecimal(char* first, char* last, std::int32_t code) {
    if (code >= 0) {
        *first++ = ' ';
    }
    return std::to_chars(first, last, code).ptr;
}

}  // namespace

std::optional<Notation> NotationByLook(std::string_view text) {
    if (text.find_first_of("ABCDEFabcdef") != std::string_view::npos) {
        return Notation::Hexadecimal;
    }
    char before = '\n';
    for (const char c : text) {
        if (before == '\n' && c != ' ' && c != '-' && c != '\n' && c != '\r') {
            return std::nullopt;
        }
        before = c;
    }
    return Notation::Decimal;
}

std::string OtherNotationText(Notation look) {
    return "the lines look like " + std::string(NotationName(look)) + " codes";
}

ParsedCodes ParseCodes(std::string_view text, Notation notation, std::string_view source) {
    text = WithoutByteOrderMark(text);
    ParsedCodes parsed{CodeParser(text, notation, source).Parse(), NotationByLook(text), ""};
    if (!text.ends_with('\n')) {
        parsed.warning = "the last line has no line end; was the file cut off?";
    }
    return parsed;
}

std::string FormatCodes(std::span<const std::int32_t> codes, Notation notation) {
    constexpr std::size_t longestLine = std::string_view("-2147483648\n").size();
    const auto format = notation == Notation::Decimal ? FormatDecimal : FormatHexadecimal;
    std::string text(codes.size() * longestLine, '\0');
    char* position = text.data();
    for (const std::int32_t code : codes) {
        position = format(position, position + longestLine - 1, code);
        *position++ = '\n';
    }
    text.resize(static_cast<std::size_t>(position - text.data()));
    return text;
}

}  // namespace vx3260
