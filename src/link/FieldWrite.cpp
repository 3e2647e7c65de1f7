// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/FieldWrite.h"

namespace vx3260 {

FieldWrite WriteField(Register& reg, const RegisterMap::Field& field, std::int32_t code) {
    return WriteField(reg, reg.ReadValue(), field, code);
}

FieldWrite WriteField(Register& reg, std::int32_t before, const RegisterMap::Field& field,
                      std::int32_t code) {
    const std::int32_t wanted = field.Insert(before, code);
    reg.WriteValue(wanted);
    return {before, wanted, reg.ReadValue()};
}

}  // namespace vx3260
