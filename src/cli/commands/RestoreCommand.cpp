// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/RestoreCommand.h"

#include <CLI/CLI.hpp>
#include <span>

#include "app/MessageTexts.h"
#include "cli/board/BoardConfiguration.h"
#include "cli/board/BoardRegisters.h"
#include "cli/board/StopSignal.h"
#include "cli/commands/ConfigurationOptions.h"
#include "cli/reports/DifferencesReport.h"
#include "link/RegisterLookup.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

/// What was written, and what was not, where some registers did not verify.
std::string OutcomeText(std::span<const RestoredRegister> restored) {
    const std::string written = NamesOf(restored, true);
    return "Written and verified: " + (written.empty() ? "none" : written) +
           ". Not verified: " + NamesOf(restored, false) + ". ";
}

void RequireVerified(Services& services, std::span<const RestoredRegister> restored) {
    const std::vector<RegisterMismatch> mismatches = MismatchesIn(restored);
    if (mismatches.empty()) {
        return;
    }
    ReadAnswered(services, mismatches.front().wanted.description, OutcomeText(restored));
    std::string message(MessageTexts::ErrorProgramming);
    for (const RegisterMismatch& mismatch : mismatches) {
        for (const std::string& line : MismatchLines(mismatch)) {
            message += "\n  " + line;
        }
    }
    throw CommandError(ExitCode::ReadBackMismatch, message + "\n" + OutcomeText(restored) +
                                                       "What was written has been left as it is.");
}

}  // namespace

RestoreCommand::RestoreCommand(CLI::App& program)
    : Command(program, "restore",
              "Write the settings in a file to the chip, each verified by reading it back") {
    AddConfigurationFile(Parser(), "FILE", file_,
                         "File that save has written, or - for standard input")
        ->required();
}

ExitCode RestoreCommand::Run(const CommandContext& context) {
    const Configuration wanted = LoadNamedConfiguration(file_);
    Services& services = context.board.Services();
    const Configuration present = ReadAnsweredConfiguration(services, NothingWritten);
    // A Ctrl+C must not leave a part of the settings behind.
    const StopSignal stop;
    const std::vector<RestoredRegister> restored =
        RestoreConfiguration(services.port, services.state.PortAddress, wanted);
    RequireVerified(services, restored);
    context.streams.out << ChangesText(DifferencesBetween(present, wanted));
    context.streams.err << CountText(static_cast<std::int64_t>(restored.size()), "register")
                        << " written, all verified" << std::endl;
    return stop.Requested() ? ExitCode::Interrupted : ExitCode::Success;
}

}  // namespace vx3260
