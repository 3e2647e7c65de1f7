// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace vx3260 {

/// The terminal in which a command was started.
struct Console {
    bool inIsTerminal = false;
    std::size_t outWidth = 0;          ///< characters in a line; 0 if the output is not a terminal
    std::size_t errWidth = 0;          ///< the same of standard error
    std::shared_ptr<void> restorer{};  ///< leaves the terminal as it was, with the last copy
};

/// Makes the process ready for the command line: its texts are UTF-8, and a file that cannot grow
/// or a pipe that nobody reads is an error of the write. Describes the terminal.
Console PrepareConsole();

/// Whether standard output is a pipe whose reader has closed it, as `head` does. Never on Windows,
/// which does not tell this from other failed writes.
bool OutputReaderHasGone();

enum class StandardStream { Output, Error };

/// For a program with windows, which may have been started without a terminal: writes a text to
/// the stream or, if that is not connected, to the terminal of the program that started this one.
/// False if there is none either.
bool Print(StandardStream stream, const std::string& text);

}  // namespace vx3260
