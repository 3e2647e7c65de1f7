#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "cli/RunCli.h"
#include "platform/LinuxSystem.h"

int main(int argc, char** argv) {
    // A file that grows beyond the limit is then an error of the write, which is reported.
    std::signal(SIGXFSZ, SIG_IGN);
    vx3260::LinuxSystem system(argc, argv);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return vx3260::RunCli(arguments, system, {std::cout, std::cerr, isatty(STDERR_FILENO) == 1});
}
