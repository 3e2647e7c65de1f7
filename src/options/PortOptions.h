// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ports/OpenPort.h"

namespace CLI {
class App;
}  // namespace CLI

namespace vx3260 {

/// Adds the options that choose the port; parsing fills in `choice`, which outlives `app`.
/// `--fault list` ends the parsing as --version does: CLI::App::exit prints the list.
void AddPortOptions(CLI::App& app, PortChoice& choice);

}  // namespace vx3260
