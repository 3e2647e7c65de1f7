// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/Lines.h"

namespace vx3260 {

/// A kind of chip that has lines.
enum class LineKind { Gpio, Ftdi };

/// Which lines carry the board: "gpio:sclk=GPIO24,din=GPIO23,...,chip=/dev/gpiochip0" or
/// "ftdi:serial=XXXX,sclk=TXD,...", or "ftdi:device=/dev/bus/usb/001/004,...". What is not named
/// has a default, but for the held line.
struct LineChoice {
    LineKind kind = LineKind::Gpio;
    /// A GPIO chip's path; an FTDI device's serial number or path. Empty for any.
    std::string device{};
    LineNames lines{};  ///< names or numbers
};

/// Whether a port is chosen in this manner, or meant to be: it begins with the name of a kind, in
/// capital or small letters. The rest may be wrong.
bool IsLineChoice(std::string_view port);

/// The continuations of a choice that has been begun: the kinds, then the keys that are not there
/// yet, a line's with its default.
std::vector<std::string> LineChoicesFrom(std::string_view begun);

/// Throws std::invalid_argument with the reason.
LineChoice ParseLineChoice(std::string_view port);

}  // namespace vx3260
