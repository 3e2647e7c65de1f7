// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/SetCommand.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "app/MessageTexts.h"
#include "cli/board/BoardRegisters.h"
#include "cli/reports/RegisterText.h"
#include "link/Assignment.h"
#include "link/Configuration.h"
#include "link/FieldWrite.h"
#include "link/Register.h"
#include "link/RegisterLookup.h"
#include "options/Completion.h"

namespace vx3260 {
namespace {

using RegisterMap::RegisterDescription;

bool CanBeSet(const RegisterDescription& description) {
    return description.access.writeByte != 0;
}

std::vector<std::string> SettableNames() {
    std::vector<std::string> names;
    for (const RegisterDescription& description : RegisterMap::ReadableRegisters) {
        if (CanBeSet(description)) {
            names.emplace_back(description.name);
        }
    }
    return names;
}

std::string FieldHelp() {
    std::string help =
        "What there is (numbers, decimal or 0x-hexadecimal, can stand for names too):";
    for (const RegisterDescription& description : RegisterMap::ReadableRegisters) {
        if (!CanBeSet(description)) {
            continue;
        }
        help += "\n  " + std::string(description.name);
        help += description.writesNeedPowerDown ? "  (in power-down mode only)" : "";
        for (const RegisterMap::Field& field : description.fields) {
            help += "\n    " + std::string(field.name) + "=" + ValueHelp(field);
        }
    }
    return help;
}

/// The fields of the register; after a field's "=" its values.
std::vector<Candidate> AssignmentCandidates(const std::string& begun,
                                            const std::string& registerName) {
    std::vector<Candidate> candidates;
    for (const RegisterDescription& description : RegisterMap::ReadableRegisters) {
        if (description.name != registerName) {
            continue;
        }
        for (const RegisterMap::Field& field : description.fields) {
            const std::string assigned = std::string(field.name) + "=";
            if (!begun.starts_with(assigned)) {
                candidates.push_back({assigned, std::string(field.title)});
                continue;
            }
            for (const std::string& name : WritableNames(field)) {
                candidates.push_back({assigned + name});
            }
        }
    }
    return candidates;
}

Assignment ParsedAssignment(const RegisterDescription& description, const std::string& text) {
    try {
        return ParseAssignment(description, text);
    } catch (const AssignmentError& error) {
        throw CommandError(ExitCode::WrongCommandLine, error.what());
    }
}

/// The chip would ignore the write, which only the read-back would show.
void RequirePowerDown(Services& services, const RegisterDescription& description) {
    if (!description.writesNeedPowerDown) {
        return;
    }
    const std::int32_t mode =
        ReadAnswered(services, RegisterMap::DescriptionOf(RegisterMap::Mode), NothingWritten).value;
    if (!RegisterMap::IsPowerDown(mode)) {
        throw CommandError(ExitCode::NotInPowerDown,
                           "the VX3260 must be in Power-Down Mode to program the register " +
                               std::string(description.name) +
                               " (mode register: " + RegisterHex(mode, RegisterMap::Mode) +
                               "). Nothing was written. The remedy: set mode mode=power-down");
    }
}

/// The level of an input comes from outside, so it is compared only if it was to be set.
std::int32_t ComparedBits(const RegisterDescription& description, const Assignment& assignment,
                          std::int32_t wanted) {
    return ComparableBits(description, wanted) | assignment.field.mask;
}

void CheckReadBack(Services& services, const RegisterDescription& description,
                   const FieldWrite& write, std::int32_t comparedBits) {
    const std::string written = RegisterHex(write.wanted, description.access);
    RequireAnswer(services, {description, write.readBack},
                  written + " was written, and may not have arrived. ");
    if (((write.wanted ^ write.readBack) & comparedBits) == 0) {
        return;
    }
    throw CommandError(ExitCode::ReadBackMismatch,
                       std::string(MessageTexts::ErrorProgramming) + ": wrote " + written +
                           " to the register " + std::string(description.name) + " (it was " +
                           RegisterHex(write.before, description.access) + ") and read back " +
                           RegisterHex(write.readBack, description.access) +
                           ". What was written has been left as it is.");
}

/// Changes one field and returns what was there and what was read back.
FieldWrite Assign(Services& services, const RegisterDescription& description,
                  const Assignment& assignment) {
    Register reg(services.port, services.state.PortAddress, description.access);
    const std::int32_t before = ReadAnswered(services, description, NothingWritten).value;
    const FieldWrite write = WriteField(reg, before, assignment.field, assignment.code);
    CheckReadBack(services, description, write,
                  ComparedBits(description, assignment, write.wanted));
    return write;
}

}  // namespace

SetCommand::SetCommand(CLI::App& program)
    : Command(program, "set", "Change fields of a register, each verified by reading it back") {
    Parser()
        .add_option("register", register_, "Which register")
        ->check(CLI::IsMember(SettableNames()))
        ->required();
    Parser()
        .add_option("assignments", assignments_, "What to change, one field after the other")
        ->type_name("FIELD=VALUE")
        ->check(Offering(AssignmentCandidates))
        ->required();
    Parser().footer(FieldHelp());
}

ExitCode SetCommand::Run(const CommandContext& context) {
    const RegisterDescription& description = RegisterMap::RegisterNamed(register_);
    std::vector<Assignment> assignments;
    for (const std::string& text : assignments_) {
        assignments.push_back(ParsedAssignment(description, text));
    }
    Services& services = context.board.Services();
    RequirePowerDown(services, description);
    for (const Assignment& assignment : assignments) {
        const FieldWrite write = Assign(services, description, assignment);
        context.streams.out << ChangeText(description, write.before, write.readBack) << std::endl;
    }
    return ExitCode::Success;
}

}  // namespace vx3260
