// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "app/MessageBoxes.h"

/// The fixed texts of messages that the forms and the command line share.
namespace vx3260::MessageTexts {

/// The two spellings of the one message are intentional; each register form states which it uses.
inline constexpr std::string_view ErrorProgramming = "Error Programming VX3260";
inline constexpr std::string_view ErrorProgrammingSmallP = "Error programming VX3260";

inline constexpr std::string_view ErrorCalibrating = "Error Calibrating VX3260";

/// What the user has to connect before a calibration of this mode, 4 to 7; nothing for the internal
/// ones.
std::optional<Message> CalibrationPrompt(std::int32_t mode);

}  // namespace vx3260::MessageTexts
