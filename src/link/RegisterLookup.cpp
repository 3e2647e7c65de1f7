// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/RegisterLookup.h"

#include <algorithm>
#include <iterator>

#include "numbers/NumberText.h"

namespace vx3260::RegisterMap {
namespace {

template <typename Predicate>
const RegisterDescription& FindRegister(Predicate predicate) {
    return *std::find_if(std::begin(ReadableRegisters), std::end(ReadableRegisters), predicate);
}

}  // namespace

const RegisterDescription& RegisterNamed(std::string_view name) {
    return FindRegister([name](const RegisterDescription& d) { return d.name == name; });
}

const RegisterDescription& DescriptionOf(const RegisterAccess& access) {
    return FindRegister(
        [&access](const RegisterDescription& d) { return d.access.readByte == access.readByte; });
}

const Field& FieldNamed(const RegisterDescription& description, std::string_view name) {
    return *std::find_if(description.fields.begin(), description.fields.end(),
                         [name](const Field& field) { return field.name == name; });
}

std::optional<std::string_view> NameOfCode(const Field& field, std::int32_t code) {
    const auto named = std::find_if(field.values.begin(), field.values.end(),
                                    [code](const FieldValue& v) { return v.code == code; });
    return named == field.values.end() ? std::nullopt : std::optional(named->name);
}

std::string TextOfCode(const Field& field, std::int32_t code) {
    return std::string(NameOfCode(field, code).value_or(std::to_string(code)));
}

std::string RegisterHex(std::int32_t value, const RegisterAccess& access) {
    constexpr int bitsOfDigit = 4;
    return PrefixedHex(value, access.wordLength / bitsOfDigit);
}

}  // namespace vx3260::RegisterMap
