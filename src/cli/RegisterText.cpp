// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/RegisterText.h"

#include <algorithm>

#include "link/Register.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {

const RegisterMap::RegisterDescription& RegisterNamed(std::string_view name) {
    return *std::find_if(
        std::begin(RegisterMap::ReadableRegisters), std::end(RegisterMap::ReadableRegisters),
        [name](const RegisterMap::RegisterDescription& d) { return d.name == name; });
}

const RegisterMap::RegisterDescription& DescriptionOf(const RegisterMap::RegisterAccess& access) {
    return *std::find_if(std::begin(RegisterMap::ReadableRegisters),
                         std::end(RegisterMap::ReadableRegisters),
                         [&access](const RegisterMap::RegisterDescription& d) {
                             return d.access.readByte == access.readByte;
                         });
}

const RegisterMap::Field& FieldNamed(const RegisterMap::RegisterDescription& description,
                                     std::string_view name) {
    return *std::find_if(description.fields.begin(), description.fields.end(),
                         [name](const RegisterMap::Field& field) { return field.name == name; });
}

std::int32_t ReadRegister(Services& services, const RegisterMap::RegisterAccess& access) {
    return ToInt32(Register(services.port, services.state.PortAddress, access).ReadReg());
}

RegisterReading ReadRegister(Services& services,
                             const RegisterMap::RegisterDescription& description) {
    return {description, ReadRegister(services, description.access)};
}

std::string RegisterHex(std::int32_t value, const RegisterMap::RegisterAccess& access) {
    constexpr int bitsOfDigit = 4;
    const std::string digits = HexText(value);
    const auto width = static_cast<std::size_t>(access.wordLength / bitsOfDigit);
    return "0x" + std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::string ChangeText(const RegisterMap::RegisterDescription& description, std::int32_t before,
                       std::int32_t after) {
    return std::string(description.name) + ": " + RegisterHex(before, description.access) + " -> " +
           RegisterHex(after, description.access);
}

std::optional<std::string_view> NameOfCode(const RegisterMap::Field& field, std::int32_t code) {
    const auto named =
        std::find_if(field.values.begin(), field.values.end(),
                     [code](const RegisterMap::FieldValue& v) { return v.code == code; });
    return named == field.values.end() ? std::nullopt : std::optional(named->name);
}

}  // namespace vx3260
