// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/ScriptText.h"

#include <algorithm>

#include "files/PlainText.h"
#include "numbers/FileErrors.h"

namespace vx3260 {
namespace {

constexpr std::string_view spaces = " \t";

/// Control characters never occur in a script. Bytes above 127 may be part of a file's name.
bool IsForeignToScripts(char c) {
    return IsControl(c) && c != '\t';
}

std::string_view WithoutCarriageReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

bool IsCommand(std::string_view line) {
    const std::size_t start = line.find_first_not_of(spaces);
    return start != std::string_view::npos && line[start] != '#';
}

}  // namespace

std::vector<ScriptLine> ScriptLines(std::string_view text, std::string_view source) {
    text = WithoutByteOrderMark(text);
    std::vector<ScriptLine> lines;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = WithoutCarriageReturn(text.substr(0, end));
        if (std::any_of(line.begin(), line.end(), IsForeignToScripts)) {
            throw BadDataError(std::string(source) + ":" + std::to_string(number) +
                               ": binary data, not a script");
        }
        if (IsCommand(line)) {
            lines.push_back({number, std::string(line)});
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

}  // namespace vx3260
