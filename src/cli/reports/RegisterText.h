// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "link/RegisterFields.h"

namespace vx3260 {

/// "0x0045": upper-case hexadecimal with as many digits as the register has.
std::string RegisterHex(std::int32_t value, const RegisterMap::RegisterAccess& access);

/// "mode: 0x03 -> 0x00"
std::string ChangeText(const RegisterMap::RegisterDescription& description, std::int32_t before,
                       std::int32_t after);

}  // namespace vx3260
