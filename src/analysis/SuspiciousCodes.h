// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "link/Converter.h"

namespace vx3260 {

/// Why a block is unlikely to come from a healthy board, as texts to follow "Warning: ": its codes
/// are all the same, or some, such as the value of a time-out, are outside the converter's range.
/// Empty for a block without suspicion and for an empty one.
std::vector<std::string> SuspicionsAbout(std::span<const std::int32_t> codes, Converter converter);

}  // namespace vx3260
