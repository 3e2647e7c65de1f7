// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vx3260 {

/// One block of readings. Code number i, counted from 1, is codes[i - 1].
struct CodeBlock {
    std::vector<double>& codes;
    std::int16_t& count;  ///< codes read; never more than codes.size()

    std::span<const double> Codes() const {
        return std::span<const double>(codes).first(static_cast<std::size_t>(count));
    }
};

/// Codes of a block as integers. Throws OverflowError for one that does not fit.
std::vector<std::int32_t> ToIntegers(std::span<const double> codes);

/// Codes of a file as a block has them.
std::vector<double> ToDoubles(std::span<const std::int32_t> codes);

}  // namespace vx3260
