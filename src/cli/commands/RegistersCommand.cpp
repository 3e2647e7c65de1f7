// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/RegistersCommand.h"

#include <CLI/CLI.hpp>

#include "cli/board/BoardRegisters.h"
#include "cli/reports/RegistersReport.h"
#include "link/RegisterLookup.h"

namespace vx3260 {
namespace {

std::vector<std::string> ReadableNames() {
    std::vector<std::string> names;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        names.emplace_back(description.name);
    }
    return names;
}

std::vector<RegisterReading> ReadThese(Services& services, const std::vector<std::string>& names) {
    std::vector<RegisterReading> readings;
    readings.reserve(names.size());
    for (const std::string& name : names) {
        readings.push_back(ReadDescribed(services, RegisterMap::RegisterNamed(name)));
    }
    return readings;
}

/// The first register is read once more: a board may have gone while the others were read.
void CheckAnswer(Services& services, const RegisterReading& first) {
    ReadAnswered(services, first.description, "What was printed may not be what the chip holds. ");
}

}  // namespace

RegistersCommand::RegistersCommand(CLI::App& program)
    : Command(program, "registers", "Print what the chip's registers hold, field by field") {
    Parser()
        .add_option("registers", names_, "Which registers; without any, all of them")
        ->check(CLI::IsMember(ReadableNames()));
    AddFormat(Parser(), format_, {ReportFormat::Json});
}

ExitCode RegistersCommand::Run(const CommandContext& context) {
    Services& services = context.board.Services();
    const std::vector<RegisterReading> readings =
        ReadThese(services, names_.empty() ? ReadableNames() : names_);
    context.streams.out << (format_ == ReportFormat::Json
                                ? RegistersJson(readings, services.boardLabel)
                                : RegistersText(readings));
    CheckAnswer(services, readings.front());
    return ExitCode::Success;
}

}  // namespace vx3260
