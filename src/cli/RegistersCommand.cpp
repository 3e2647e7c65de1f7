// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/RegistersCommand.h"

#include <algorithm>
#include <vector>

#include "cli/RegisterText.h"
#include "cli/RegistersReport.h"

namespace vx3260 {
namespace {

std::vector<RegisterReading> ReadAll(Services& services) {
    std::vector<RegisterReading> readings;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        readings.push_back(ReadRegister(services, description));
    }
    return readings;
}

/// Some settings leave a register all 0 or all 1, but none does that to every one of them.
void CheckAnswer(const std::vector<RegisterReading>& readings) {
    const auto hintOf = [](const RegisterReading& reading) {
        return StuckLineHint(reading.value, reading.description.access);
    };
    const std::string hint = hintOf(readings.front());
    if (!hint.empty() &&
        std::all_of(readings.begin(), readings.end(),
                    [&](const RegisterReading& reading) { return hintOf(reading) == hint; })) {
        throw CommandError(ExitCode::NoAnswer,
                           "no answer from the board: every register reads the same. " + hint +
                               std::string(CheckBoardAdvice));
    }
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
                                ? RegistersJson(readings, services.boardBadge)
                                : RegistersText(readings));
    CheckAnswer(readings);
    return ExitCode::Success;
}

}  // namespace vx3260
