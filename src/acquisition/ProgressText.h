// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace vx3260 {

/// How far a block is: "1804 of 5000, 2:41 left". The time left is that of the readings so far,
/// `elapsed`, applied to the rest. Before a second has passed it goes by `rate`, in readings a
/// second, and is left out where that is not known.
std::string ProgressText(std::int64_t done, std::int64_t total,
                         std::chrono::duration<double> elapsed,
                         std::optional<double> rate = std::nullopt);

/// The time left where `part` of the work, 0 to 1, took `elapsed`: "2:41 left"; empty before a
/// second has passed and at the end.
std::string TimeLeftText(double part, std::chrono::duration<double> elapsed);

}  // namespace vx3260
