// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "link/RegisterFields.h"

/// Finds registers, fields and values by their names, and the names of what was found.
namespace vx3260::RegisterMap {

/// The register with this name, one of ReadableRegisters.
const RegisterDescription& RegisterNamed(std::string_view name);

/// The one of ReadableRegisters with this read byte.
const RegisterDescription& DescriptionOf(const RegisterAccess& access);

/// The field with this name, which the register must have.
const Field& FieldNamed(const RegisterDescription& description, std::string_view name);

/// The name of a field's code; nothing where the field is a plain number or the code has no name.
std::optional<std::string_view> NameOfCode(const Field& field, std::int32_t code);

/// The name of a field's code, or the decimal number if the code has no name.
std::string TextOfCode(const Field& field, std::int32_t code);

/// "0x0045": a register's contents in upper-case hexadecimal with as many digits as it has.
std::string RegisterHex(std::int32_t value, const RegisterAccess& access);

}  // namespace vx3260::RegisterMap
