// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "analysis/BlockWarnings.h"
#include "analysis/ConversionConditions.h"

namespace vx3260 {

/// A block as it was read from a board.
struct ReadBlockReport {
    std::string_view board;  ///< empty for a real one
    ConversionConditions conversion;
    const BlockConditions& conditions;  ///< with a time for each code
    std::span<const std::int32_t> codes;
    std::span<const BlockWarning> warnings;
};

/// A line of column names, then index, from 1 on, time_s, code and volts of each code. A time has
/// six decimals; volts are the shortest text that reads back as the same double-precision number.
std::string BlockCsv(const ReadBlockReport& block);

/// The block and its conditions as a JSON object.
std::string BlockJson(const ReadBlockReport& block);

}  // namespace vx3260
