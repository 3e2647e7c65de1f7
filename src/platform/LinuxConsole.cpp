// SPDX-License-Identifier: GPL-3.0-or-later
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

#include "platform/Console.h"

namespace vx3260 {
namespace {

/// A serial terminal does not report its width.
std::size_t WidthOf(int terminal) {
    constexpr std::size_t usualWidth = 80;
    winsize size{};
    if (ioctl(terminal, TIOCGWINSZ, &size) != 0) {
        return 0;
    }
    return size.ws_col > 0 ? size.ws_col : usualWidth;
}

}  // namespace

Console PrepareConsole() {
    // Each would end the process at a write: to a file that is at the size limit, and to a pipe
    // that nobody reads any more.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    return {.inIsTerminal = isatty(STDIN_FILENO) == 1,
            .outWidth = WidthOf(STDOUT_FILENO),
            .errWidth = WidthOf(STDERR_FILENO)};
}

bool OutputReaderHasGone() {
    pollfd output{STDOUT_FILENO, 0, 0};
    return poll(&output, 1, 0) == 1 && (output.revents & (POLLERR | POLLHUP)) != 0;
}

bool Print(StandardStream stream, const std::string& text) {
    (stream == StandardStream::Output ? std::cout : std::cerr) << text << std::flush;
    return true;
}

}  // namespace vx3260
