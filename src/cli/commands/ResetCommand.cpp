// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/ResetCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>
#include <vector>

#include "link/Reset.h"

namespace vx3260 {
namespace {

struct ResetKind {
    std::string_view name;
    void (*reset)(ParallelPort& parallelPort, std::int16_t port);
    std::string_view report;
};

constexpr ResetKind kinds[] = {
    {"hardware", HardwareReset, "Hardware reset: pulsed the reset line"},
    {"software", SoftwareReset,
     "Software reset: clocked 32 ones into the chip and cleared the test registers"},
};

std::vector<std::string> ResetKindNames() {
    std::vector<std::string> names;
    std::transform(std::begin(kinds), std::end(kinds), std::back_inserter(names),
                   [](const ResetKind& kind) { return std::string(kind.name); });
    return names;
}

}  // namespace

ResetCommand::ResetCommand(CLI::App& program)
    : Command(program, "reset", "Reset the chip; nothing is read back") {
    Parser()
        .add_option("kind", kind_, "Which reset")
        ->check(CLI::IsMember(ResetKindNames()))
        ->required();
}

ExitCode ResetCommand::Run(const CommandContext& context) {
    Services& services = context.board.Services();
    const auto* const kind = std::find_if(std::begin(kinds), std::end(kinds),
                                          [this](const ResetKind& k) { return k.name == kind_; });
    kind->reset(services.port, services.state.PortAddress);
    context.streams.err << kind->report << std::endl;
    return ExitCode::Success;
}

}  // namespace vx3260
