// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/ReportCommand.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "characterisation/Report.h"
#include "characterisation/ResultsFolder.h"
#include "options/Validators.h"

namespace vx3260 {

ReportCommand::ReportCommand(CLI::App& program)
    : Command(program, "report", "Write the report of a characterisation anew into its folder") {
    Parser()
        .add_option("FOLDER", folder_, "Folder that characterise has written")
        ->check(FolderName())
        ->required();
}

ExitCode ReportCommand::Run(const CommandContext& context) {
    WriteReport(LoadResults(folder_), folder_);
    context.streams.err << "Wrote " << PathIn(folder_, ReportName) << std::endl;
    return ExitCode::Success;
}

}  // namespace vx3260
