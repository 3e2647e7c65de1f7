// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/RegistersCommand.h"

#include <CLI/CLI.hpp>
#include <vector>

#include "cli/board/BoardRegisters.h"
#include "cli/reports/RegistersReport.h"

namespace vx3260 {
namespace {

std::vector<RegisterReading> ReadAll(Services& services) {
    std::vector<RegisterReading> readings;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        readings.push_back(ReadDescribed(services, description));
    }
    return readings;
}

/// The first register is read once more: a board may have gone while the others were read.
void CheckAnswer(Services& services) {
    ReadAnswered(services, RegisterMap::ReadableRegisters[0],
                 "What was printed may not be what the chip holds. ");
}

}  // namespace

RegistersCommand::RegistersCommand(CLI::App& program)
    : Command(program, "registers", "Print what the chip's registers hold, field by field") {
    AddFormat(Parser(), format_, ReportFormat::Json);
}

ExitCode RegistersCommand::Run(const CommandContext& context) {
    Services& services = context.board.Services();
    const std::vector<RegisterReading> readings = ReadAll(services);
    context.streams.out << (format_ == ReportFormat::Json
                                ? RegistersJson(readings, services.boardLabel)
                                : RegistersText(readings));
    CheckAnswer(services);
    return ExitCode::Success;
}

}  // namespace vx3260
