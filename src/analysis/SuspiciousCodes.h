// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "link/Converter.h"

namespace vx3260 {

/// The largest code of a converter: 0xFFFFFF or 0xFFFF.
constexpr std::int32_t LargestCodeOf(Converter converter) {
    return (std::int32_t{1} << TraitsOf(converter).data.wordLength) - 1;
}

/// Why a block can hardly be results of a healthy board, to be told after "Warning: ": its codes
/// are all the same, or some, such as the value of a time-out, are none that the converter gives.
/// Empty for a block without suspicion and for one without codes.
std::vector<std::string> SuspicionsAbout(std::span<const std::int32_t> codes, Converter converter);

}  // namespace vx3260
