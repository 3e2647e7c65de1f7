// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/CommandSet.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

#include "cli/commands/CalibrateCommand.h"
#include "cli/commands/CheckCommand.h"
#include "cli/commands/HistogramCommand.h"
#include "cli/commands/NoiseCommand.h"
#include "cli/commands/PortsCommand.h"
#include "cli/commands/ReadCommand.h"
#include "cli/commands/RegistersCommand.h"
#include "cli/commands/ResetCommand.h"
#include "cli/commands/SetCommand.h"

namespace vx3260 {

CommandSet::CommandSet(CLI::App& parser) {
    // Before the commands, which inherit it: options of the program may follow a command.
    parser.fallthrough();
    parser.allow_windows_style_options(false);  // the same words on every system
    parser.allow_extras();
    parser.require_subcommand(0, 1);
    // Checked last, so that the message names a command that does not exist.
    parser.final_callback([&parser] {
        const std::vector<std::string> unknown = parser.remaining(true);
        if (!unknown.empty()) {
            throw CLI::ExtrasError({unknown.front()});
        }
        if (parser.get_subcommands().empty()) {
            throw CLI::RequiredError("A command");
        }
    });
    Add(std::make_unique<PortsCommand>(parser));
    Add(std::make_unique<CheckCommand>(parser));
    Add(std::make_unique<RegistersCommand>(parser));
    Add(std::make_unique<SetCommand>(parser));
    Add(std::make_unique<CalibrateCommand>(parser));
    Add(std::make_unique<ResetCommand>(parser));
    Add(std::make_unique<ReadCommand>(parser));
    Add(std::make_unique<NoiseCommand>(parser));
    Add(std::make_unique<HistogramCommand>(parser));
}

Command& CommandSet::Chosen() const {
    return **std::find_if(commands_.begin(), commands_.end(),
                          [](const std::unique_ptr<Command>& c) { return c->Chosen(); });
}

}  // namespace vx3260
