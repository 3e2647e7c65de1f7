// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/ConsoleMessages.h"

#include <string>
#include <string_view>

namespace vx3260 {
namespace {

std::string Indented(std::string_view text) {
    std::string indented;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool endOfPair = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
        if (endOfPair) {
            continue;
        }
        const bool lineBreak = text[i] == '\r' || text[i] == '\n';
        indented += lineBreak ? "\n  " : std::string(1, text[i]);
    }
    return indented;
}

}  // namespace

MessageAnswer ConsoleMessages::Show(const Message& message) {
    std::string whole = message.title + ": " + message.text;
    if (!message.detail.empty()) {
        whole += "\n" + message.detail;
    }
    stream_ << Indented(whole) << std::endl;
    return message.buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
}

}  // namespace vx3260
