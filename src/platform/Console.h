#pragma once

#include <cstddef>
#include <memory>

namespace vx3260 {

/// The terminal that a command was started in.
struct Console {
    bool errIsTerminal = false;
    bool errIsSeen = true;     ///< false for a program with windows, started from the desktop
    std::size_t outWidth = 0;  ///< characters of a line; 0 where the output is no terminal
    std::shared_ptr<void> restorer{};  ///< leaves the terminal as it was, with the last copy
};

/// Makes the process ready for the command line: its texts are UTF-8, and a file that cannot grow
/// is an error of the write. Tells about the terminal.
Console PrepareConsole();

}  // namespace vx3260
