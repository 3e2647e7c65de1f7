// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/RegisterText.h"

#include "numbers/NumberText.h"

namespace vx3260 {

std::string RegisterHex(std::int32_t value, const RegisterMap::RegisterAccess& access) {
    constexpr int bitsOfDigit = 4;
    return PrefixedHex(value, access.wordLength / bitsOfDigit);
}

std::string ChangeText(const RegisterMap::RegisterDescription& description, std::int32_t before,
                       std::int32_t after) {
    return std::string(description.name) + ": " + RegisterHex(before, description.access) + " -> " +
           RegisterHex(after, description.access);
}

}  // namespace vx3260
