// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/FieldWrite.h"

#include "numbers/Conversions.h"

namespace vx3260 {

FieldWrite WriteField(Register& reg, const RegisterMap::Field& field, std::int32_t code) {
    return WriteField(reg, ToInt32(reg.ReadReg()), field, code);
}

FieldWrite WriteField(Register& reg, std::int32_t before, const RegisterMap::Field& field,
                      std::int32_t code) {
    const std::int32_t wanted = field.Insert(before, code);
    reg.RegValue = wanted;
    reg.WriteReg();
    return {before, wanted, ToInt32(reg.ReadReg())};
}

}  // namespace vx3260
