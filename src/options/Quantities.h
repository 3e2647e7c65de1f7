// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <map>
#include <string>

namespace vx3260 {

/// Turns "12h", "90m" or "1.5s" into seconds; a number without a unit is in seconds.
inline CLI::Validator AsSeconds() {
    return CLI::AsNumberWithUnit(
        std::map<std::string, double>{{"ms", 1e-3}, {"s", 1}, {"m", 60}, {"h", 3600}, {"d", 86400}},
        CLI::AsNumberWithUnit::DEFAULT, "TIME");
}

/// Turns "100MB" into bytes, 1000 of them a kilobyte.
inline CLI::Validator AsBytes() {
    return CLI::AsSizeValue(true);
}

}  // namespace vx3260
