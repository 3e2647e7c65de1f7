// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/RegisterFields.h"

namespace vx3260 {

/// A register and what it held when it was read.
struct RegisterReading {
    const RegisterMap::RegisterDescription& description;
    std::int32_t value;
};

}  // namespace vx3260
