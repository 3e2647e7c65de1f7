// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

namespace vx3260 {

/// One choice of the printer-port menu.
struct PrinterPort {
    const char* item;      ///< name of the menu item
    std::int16_t address;  ///< base I/O address that it sets
};

inline constexpr std::array<PrinterPort, 3> PrinterPorts{{
    {"MnuLPT1", 888},
    {"MnuLPT2", 632},
    {"MnuPRN", 956},
}};

/// The fixed address on Windows 95 and 98.
inline constexpr std::int16_t DefaultPortAddress = PrinterPorts[0].address;

}  // namespace vx3260
