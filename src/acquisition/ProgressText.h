// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace vx3260 {

/// How far a block is: "1804 of 5000, 2:41 left". The time left is that of the readings so far,
/// `elapsed`, applied to the rest; it is left out before a second has passed.
std::string ProgressText(std::int64_t done, std::int64_t total,
                         std::chrono::duration<double> elapsed);

}  // namespace vx3260
