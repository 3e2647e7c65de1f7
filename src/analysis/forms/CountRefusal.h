// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "app/MessageBoxes.h"

namespace vx3260 {

/// Shows CountRefusal where a block's count does not fit an analysis, and returns whether it did.
bool RefusedByCount(MessageBoxes& messages, std::int32_t count);

}  // namespace vx3260
