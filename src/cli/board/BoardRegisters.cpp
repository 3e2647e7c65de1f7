// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/BoardRegisters.h"

#include <optional>
#include <string>

#include "app/PortWords.h"
#include "link/BoardCheck.h"
#include "link/Register.h"
#include "link/RegisterLookup.h"
#include "options/ExitCodes.h"

namespace vx3260 {
namespace {

/// The level of a dead line that would give this value; empty if the bits differ.
std::optional<int> LevelOfDeadLine(std::int32_t value, const RegisterMap::RegisterAccess& access) {
    const std::int32_t allOnes = (std::int32_t{1} << access.wordLength) - 1;
    if (value != 0 && value != allOnes) {
        return std::nullopt;
    }
    return value == 0 ? 0 : 1;
}

/// The level of the dead line through which a value was read; empty if a board answers.
std::optional<int> DeadLineBehind(Services& services, const RegisterReading& reading) {
    const std::optional<int> level = LevelOfDeadLine(reading.value, reading.description.access);
    return level && AllBitsRead(services.port, services.state.PortAddress, *level) ? level
                                                                                   : std::nullopt;
}

}  // namespace

std::int32_t ReadContents(Services& services, const RegisterMap::RegisterAccess& access) {
    return ReadRegister(services.port, services.state.PortAddress, access);
}

RegisterReading ReadDescribed(Services& services,
                              const RegisterMap::RegisterDescription& description) {
    return {description, ReadContents(services, description.access)};
}

bool BoardAnswers(Services& services, const RegisterMap::RegisterDescription& description) {
    return !DeadLineBehind(services, ReadDescribed(services, description));
}

void RequireAnswer(Services& services, const RegisterReading& reading,
                   std::string_view consequence) {
    const std::optional<int> level = DeadLineBehind(services, reading);
    if (!level) {
        return;
    }
    const std::string line = *level == 0 ? "0, as from a line that is stuck low. "
                                         : "1, as from a line that is open or stuck high. ";
    throw CommandError(
        ExitCode::NoAnswer,
        "no answer from the board: the register " + std::string(reading.description.name) +
            " reads " + RegisterHex(reading.value, reading.description.access) +
            ", and every other one alike. All bits read " + line + std::string(consequence) +
            InPortWords("Check the cable, the board's power and {which port}.", services.port));
}

RegisterReading ReadAnswered(Services& services,
                             const RegisterMap::RegisterDescription& description,
                             std::string_view consequence) {
    const RegisterReading reading = ReadDescribed(services, description);
    RequireAnswer(services, reading, consequence);
    return reading;
}

}  // namespace vx3260
