#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "cli/RunCli.h"
#include "platform/LinuxSystem.h"

namespace {

void FitToTerminal(vx3260::CliStreams& streams) {
    streams.errIsTerminal = isatty(STDERR_FILENO) == 1;
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        streams.outWidth = size.ws_col;
    }
}

}  // namespace

int main(int argc, char** argv) {
    // A file that grows beyond the limit is then an error of the write, which is reported.
    std::signal(SIGXFSZ, SIG_IGN);
    vx3260::LinuxSystem system(argc, argv);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    vx3260::CliStreams streams{std::cout, std::cerr};
    FitToTerminal(streams);
    return vx3260::RunCli(arguments, system, streams);
}
