// SPDX-License-Identifier: GPL-3.0-or-later
#include <iostream>

#include "cli/commands/RunCli.h"
#include "platform/Console.h"
#include "platform/HostSystem.h"

int main(int argc, char** argv) {
    const vx3260::Console console = vx3260::PrepareConsole();
    vx3260::HostSystem system(argc, argv);
    vx3260::CliStreams streams{std::cout, std::cerr};
    streams.readerHasGone = vx3260::OutputReaderHasGone;
    streams.inIsTerminal = console.inIsTerminal;
    streams.errWidth = console.errWidth;
    if (console.outWidth > 0) {
        streams.outWidth = console.outWidth;
    }
    return vx3260::RunCli(system.Arguments(), system, streams);
}
