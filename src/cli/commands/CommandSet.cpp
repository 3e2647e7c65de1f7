// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/CommandSet.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

#include "cli/commands/CalibrateCommand.h"
#include "cli/commands/CharacteriseCommand.h"
#include "cli/commands/CheckCommand.h"
#include "cli/commands/CompareCommand.h"
#include "cli/commands/ExportCommand.h"
#include "cli/commands/HistogramCommand.h"
#include "cli/commands/NoiseCommand.h"
#include "cli/commands/PortsCommand.h"
#include "cli/commands/ReadCommand.h"
#include "cli/commands/RecordCommand.h"
#include "cli/commands/RegistersCommand.h"
#include "cli/commands/ReportCommand.h"
#include "cli/commands/ResetCommand.h"
#include "cli/commands/RestoreCommand.h"
#include "cli/commands/SaveCommand.h"
#include "cli/commands/SetCommand.h"
#include "cli/commands/SpectrumCommand.h"
#include "cli/commands/StabilityCommand.h"
#include "cli/commands/UnknownWord.h"

namespace vx3260 {
namespace {

/// The help of all commands ends each one with its footer, such as the fields of set.
class HelpFormatter final : public CLI::Formatter {
  public:
    std::string make_expanded(const CLI::App* command) const override {
        const std::string footer = command->get_footer();
        return Formatter::make_expanded(command) +
               (footer.empty() ? "" : Indented("\n" + footer) + "\n");
    }

  private:
    static std::string Indented(std::string text) {
        return CLI::detail::find_and_replace(std::move(text), "\n", "\n  ");
    }
};

}  // namespace

CommandSet::CommandSet(CLI::App& parser) {
    // Before the commands, which inherit these: options of the program may follow a command.
    parser.fallthrough();
    parser.formatter(std::make_shared<HelpFormatter>());
    parser.set_help_all_flag("--help-all", "Print the help of every command and exit");
    parser.allow_windows_style_options(false);  // the same words on every system
    parser.allow_extras();
    parser.require_subcommand(0, 1);
    // Checked last, so that the message names a command that does not exist.
    parser.final_callback([&parser] {
        const std::vector<std::string> unknown = parser.remaining(true);
        if (!unknown.empty()) {
            RefuseUnknownWord(parser, unknown.front());
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
    Add(std::make_unique<SaveCommand>(parser));
    Add(std::make_unique<RestoreCommand>(parser));
    Add(std::make_unique<CompareCommand>(parser));
    Add(std::make_unique<ExportCommand>(parser));
    Add(std::make_unique<ResetCommand>(parser));
    Add(std::make_unique<ReadCommand>(parser));
    Add(std::make_unique<RecordCommand>(parser));
    Add(std::make_unique<NoiseCommand>(parser));
    Add(std::make_unique<HistogramCommand>(parser));
    Add(std::make_unique<SpectrumCommand>(parser));
    Add(std::make_unique<StabilityCommand>(parser));
    Add(std::make_unique<CharacteriseCommand>(parser));
    Add(std::make_unique<ReportCommand>(parser));
}

Command& CommandSet::Chosen() const {
    return **std::find_if(commands_.begin(), commands_.end(),
                          [](const std::unique_ptr<Command>& c) { return c->Chosen(); });
}

}  // namespace vx3260
