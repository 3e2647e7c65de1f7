// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "link/RegisterReading.h"

namespace vx3260 {

/// A heading with name and contents for each register, below it a line for each field.
std::string RegistersText(std::span<const RegisterReading> readings);

/// The same as one JSON object. `board` is the label of the board they come from; null when empty.
std::string RegistersJson(std::span<const RegisterReading> readings, std::string_view board);

}  // namespace vx3260
