// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/RegisterText.h"

#include "link/RegisterLookup.h"

namespace vx3260 {

std::string ChangeText(const RegisterMap::RegisterDescription& description, std::int32_t before,
                       std::int32_t after) {
    return std::string(description.name) + ": " + RegisterHex(before, description.access) + " -> " +
           RegisterHex(after, description.access);
}

}  // namespace vx3260
