#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vx3260 {

/// One choice of the printer-port menu.
struct PrinterPort {
    std::string_view item;     ///< name of the menu item
    std::string_view caption;  ///< its text
    std::int16_t address;      ///< base I/O address that it sets
};

inline constexpr std::array<PrinterPort, 3> PrinterPorts{{
    {"MnuLPT1", "LPT1", 888},
    {"MnuLPT2", "LPT2", 632},
    {"MnuPRN", "PRN", 956},
}};

/// The address that is taken for granted on Windows 95 and 98.
inline constexpr std::int16_t DefaultPortAddress = PrinterPorts[0].address;

}  // namespace vx3260
