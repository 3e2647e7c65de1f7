// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace vx3260 {

/// One block of readings. Code number i, counted from 1, is codes[i - 1].
struct CodeBlock {
    std::vector<double>& codes;
    std::int16_t& count;  ///< codes read; never more than codes.size()
};

}  // namespace vx3260
