// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace vx3260 {

/// The two spellings of the one message, both as designed.
inline constexpr std::string_view ErrorProgramming = "Error Programming VX3260";
inline constexpr std::string_view ErrorProgrammingSmallP = "Error programming VX3260";

}  // namespace vx3260
