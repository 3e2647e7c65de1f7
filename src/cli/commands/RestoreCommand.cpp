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

void RequireVerified(Services& services, std::span<const RestoredRegister> restored) {
    if (MismatchesIn(restored).empty()) {
        return;
    }
    ReadAnswered(services, MismatchesIn(restored).front().wanted.description,
                 RestoreReport(restored, false));
    throw CommandError(ExitCode::ReadBackMismatch, std::string(MessageTexts::ErrorProgramming) +
                                                       "\n" + RestoreReport(restored, true) +
                                                       "What was written has been left as it is.");
}

std::vector<RestoredRegister> Restore(Services& services, const Configuration& wanted) {
    try {
        return RestoreConfiguration(services.port, services.state.PortAddress, wanted);
    } catch (const UnsteadyRegisters& error) {
        throw CommandError(ExitCode::ReadBackMismatch,
                           std::string(error.what()) + ". " + std::string(NothingWritten));
    }
}

}  // namespace

RestoreCommand::RestoreCommand(CLI::App& program)
    : Command(program, "restore",
              "Write the settings in a file to the chip, each verified by reading it back") {
    AddConfigurationFile(Parser(), "FILE", file_,
                         "File that save has written, or - for standard input")
        ->required();
    Parser().footer(
        "The chip goes to power-down; the filter and, where the file has them, the coefficients "
        "are "
        "written, then the other registers, the operating mode last. Each is read back at once, "
        "all "
        "of them at the end. Coefficients and levels of input pins that the file leaves out stay "
        "as "
        "they are; a file that leaves out anything else, or has anything wrong, is refused before "
        "that.");
}

ExitCode RestoreCommand::Run(const CommandContext& context) {
    const Configuration wanted = LoadNamedConfiguration(file_);
    Services& services = context.board.Services();
    const Configuration present = ReadAnsweredConfiguration(services, NothingWritten);
    // A Ctrl+C must not leave a part of the settings behind.
    const StopSignal stop;
    const std::vector<RestoredRegister> restored = Restore(services, wanted);
    RequireVerified(services, restored);
    context.streams.out << ChangesText(DifferencesBetween(present, wanted));
    context.streams.err << CountText(static_cast<std::int64_t>(restored.size()), "register")
                        << " written, all verified" << std::endl;
    return stop.Requested() ? ExitCode::Interrupted : ExitCode::Success;
}

}  // namespace vx3260
