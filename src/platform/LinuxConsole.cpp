// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

#include "platform/Console.h"

namespace vx3260 {

Console PrepareConsole() {
    // A file that grows beyond the limit would end the process.
    std::signal(SIGXFSZ, SIG_IGN);
    Console console{.errIsTerminal = isatty(STDERR_FILENO) == 1};
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) {
        console.outWidth = size.ws_col;
    }
    return console;
}

bool Print(StandardStream stream, const std::string& text) {
    (stream == StandardStream::Output ? std::cout : std::cerr) << text << std::flush;
    return true;
}

}  // namespace vx3260
