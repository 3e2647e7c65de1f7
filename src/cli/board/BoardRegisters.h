// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "app/Services.h"
#include "link/RegisterReading.h"

namespace vx3260 {

/// The contents of a register of the board, read once.
std::int32_t ReadContents(Services& services, const RegisterMap::RegisterAccess& access);

/// The same, with the description of the register.
RegisterReading ReadDescribed(Services& services,
                              const RegisterMap::RegisterDescription& description);

/// Ensures that a value was read from a board. A dead line makes all bits alike, so such a value is
/// accepted only if another register reads differently. Throws CommandError if none does;
/// `consequence` is the sentence of its message that states what this means for the command.
void RequireAnswer(Services& services, const RegisterReading& reading,
                   std::string_view consequence);

/// Whether a board answers now, as far as reading one register shows.
bool BoardAnswers(Services& services, const RegisterMap::RegisterDescription& description);

/// Reads a register and requires an answer.
RegisterReading ReadAnswered(Services& services,
                             const RegisterMap::RegisterDescription& description,
                             std::string_view consequence);

/// The consequence for a command that reads a register before it writes it.
inline constexpr std::string_view NothingWritten = "Nothing was written. ";

}  // namespace vx3260
