// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "link/RegisterFields.h"

namespace vx3260 {

/// "mode: 0x03 -> 0x00"
std::string ChangeText(const RegisterMap::RegisterDescription& description, std::int32_t before,
                       std::int32_t after);

}  // namespace vx3260
