// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "app/Services.h"
#include "link/RegisterReading.h"

namespace vx3260 {

/// Reads a register once.
std::int32_t ReadRegister(Services& services, const RegisterMap::RegisterAccess& access);
RegisterReading ReadRegister(Services& services,
                             const RegisterMap::RegisterDescription& description);

/// Makes sure that a value was read from a board. All bits alike are what a dead line gives, so
/// such a value counts only when another register reads otherwise. Throws CommandError when none
/// does; `consequence` is the sentence of its message about what that means for the command.
void RequireAnswer(Services& services, const RegisterReading& reading,
                   std::string_view consequence);

/// Reads a register and requires an answer.
RegisterReading ReadAnswered(Services& services,
                             const RegisterMap::RegisterDescription& description,
                             std::string_view consequence);

/// The consequence for a command that reads a register before it writes it.
inline constexpr std::string_view NothingWritten = "Nothing was written. ";

}  // namespace vx3260
