// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "app/Services.h"
#include "link/RegisterFields.h"

namespace vx3260 {

/// A register and what it held when it was read.
struct RegisterReading {
    const RegisterMap::RegisterDescription& description;
    std::int32_t value;
};

/// The register with this name of the command line, which must be one of them.
const RegisterMap::RegisterDescription& RegisterNamed(std::string_view name);

/// The register with this read byte, which must be one of them.
const RegisterMap::RegisterDescription& DescriptionOf(const RegisterMap::RegisterAccess& access);

/// The field with this name, which the register must have.
const RegisterMap::Field& FieldNamed(const RegisterMap::RegisterDescription& description,
                                     std::string_view name);

/// Reads a register once.
std::int32_t ReadRegister(Services& services, const RegisterMap::RegisterAccess& access);
RegisterReading ReadRegister(Services& services,
                             const RegisterMap::RegisterDescription& description);

/// "0x0045": upper-case hexadecimal with as many digits as the register has.
std::string RegisterHex(std::int32_t value, const RegisterMap::RegisterAccess& access);

/// "mode: 0x03 -> 0x00"
std::string ChangeText(const RegisterMap::RegisterDescription& description, std::int32_t before,
                       std::int32_t after);

/// The name of a field's code; nothing where the field is a plain number or the code has no name.
std::optional<std::string_view> NameOfCode(const RegisterMap::Field& field, std::int32_t code);

}  // namespace vx3260
