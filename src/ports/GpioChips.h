// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ports/Lines.h"

/// The GPIO chips of Linux' character devices. Nothing here claims a line.
namespace vx3260 {

/// A text of the kernel's that may fill its field without an end.
template <std::size_t Size>
std::string KernelText(const char (&field)[Size]) {
    return {field, std::find(field, field + Size, '\0')};
}

struct GpioLineInfo {
    std::string name{};      ///< empty where the system gives none
    std::string consumer{};  ///< who holds it; empty where nobody does
    bool used = false;
};

struct GpioChip {
    std::string path{};                 ///< "/dev/gpiochip0"
    std::string label{};                ///< "pinctrl-bcm2835"
    std::vector<GpioLineInfo> lines{};  ///< by their offsets
};

/// Opens a device, for O_RDONLY or O_RDWR; -1 and errno on failure. Does not wait, whatever the
/// path is, such as a FIFO that nobody writes to.
int OpenGpioChip(const std::string& path, int mode);

/// What a device is; empty, with errno, where it cannot be opened or is not a GPIO chip.
std::optional<GpioChip> GpioChipAt(const std::string& path);

/// The paths of the machine's GPIO chips in the order of their numbers.
std::vector<std::string> FindGpioChips();

/// Why a chip cannot be opened, and the remedy; `error` is the errno of the attempt.
std::string GpioOpenFailureDetail(const std::string& path, int error);

/// What the chip is: "pinctrl-bcm2835, lines 0 to 53".
std::string GpioChipText(const GpioChip& chip);

/// Who holds lines of the chip: "GPIO24 by led0, GPIO17 by gpio-keys"; empty for none.
std::string HeldLinesText(const GpioChip& chip);

/// The chip and the offsets of the lines on it, by role.
struct GpioPlace {
    GpioChip chip{};
    std::array<std::optional<std::uint32_t>, LineRoles.size()> offsets{};  ///< empty: not used
};

/// Finds the lines, by names or by offsets. Without the path of a chip all are searched for one
/// that has all of the names. Returns nothing, and why in `failure`, where there is none.
std::optional<GpioPlace> FindGpioLines(const std::string& path, const LineNames& names,
                                       std::string& failure);

}  // namespace vx3260
