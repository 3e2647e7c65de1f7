// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "app/OperatingSystem.h"
#include "cli/board/BoardSession.h"

namespace vx3260 {

/// The whole program except what belongs to the process: `arguments`, UTF-8, are those of main
/// without the program's name. Returns the exit code, a value of ExitCode.
int RunCli(std::span<const std::string> arguments, OperatingSystem& system, CliStreams streams,
           const PortOpener& openPort = OpenPort);

}  // namespace vx3260
