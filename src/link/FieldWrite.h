// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/Register.h"
#include "link/RegisterFields.h"

namespace vx3260 {

/// The contents of a register before a write, as written, and as read back.
struct FieldWrite {
    std::int32_t before;
    std::int32_t wanted;
    std::int32_t readBack;

    bool Verified() const { return readBack == wanted; }
};

/// Reads the register, changes one field, writes the register and reads it back. The chip gives no
/// acknowledgement, so comparing the last two is the only verification. The written value stays in
/// place either way.
FieldWrite WriteField(Register& reg, const RegisterMap::Field& field, std::int32_t code);

/// The same for a register that has just been read as `before`.
FieldWrite WriteField(Register& reg, std::int32_t before, const RegisterMap::Field& field,
                      std::int32_t code);

}  // namespace vx3260
