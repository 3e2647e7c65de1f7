// SPDX-License-Identifier: GPL-3.0-or-later
#include "numbers/Columns.h"

namespace vx3260 {
namespace {

std::vector<std::size_t> WidthsOf(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const std::vector<std::string>& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], CharactersOf(row[i]));
        }
    }
    return widths;
}

}  // namespace

std::string CaptionedLines(const std::vector<CaptionedText>& rows) {
    std::size_t width = 0;
    for (const auto& [caption, text] : rows) {
        width = std::max(width, CharactersOf(caption));
    }
    std::string lines;
    for (const auto& [caption, text] : rows) {
        lines += "  " + Padded(caption, width + 2) + text + "\n";
    }
    return lines;
}

std::string TableText(const std::vector<std::vector<std::string>>& rows) {
    const std::vector<std::size_t> widths = WidthsOf(rows);
    std::string text;
    for (const std::vector<std::string>& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += "  " + RightAligned(row[i], widths[i]);
        }
        text += "\n";
    }
    return text;
}

std::string LeftAlignedTable(const std::vector<std::vector<std::string>>& rows) {
    const std::vector<std::size_t> widths = WidthsOf(rows);
    std::string text;
    for (const std::vector<std::string>& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += Padded(row[i], widths[i] + 2);
        }
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}

}  // namespace vx3260
