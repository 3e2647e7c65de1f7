// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/Register.h"
#include "link/RegisterFields.h"

namespace vx3260 {

/// A register before, as it should be, and as it was read back.
struct FieldWrite {
    std::int32_t before;
    std::int32_t wanted;
    std::int32_t readBack;

    bool Verified() const { return readBack == wanted; }
};

/// Reads the register, changes one field, writes the whole back and reads it again. The chip gives
/// no acknowledgement: the comparison of the last two is the only one there is. What was written
/// stays in place either way.
FieldWrite WriteField(Register& reg, const RegisterMap::Field& field, std::int32_t code);

/// The same for a register that has just been read as `before`.
FieldWrite WriteField(Register& reg, std::int32_t before, const RegisterMap::Field& field,
                      std::int32_t code);

}  // namespace vx3260
