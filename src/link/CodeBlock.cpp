// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/CodeBlock.h"

#include <algorithm>

#include "numbers/Conversions.h"

namespace vx3260 {

std::vector<std::int32_t> ToIntegers(std::span<const double> codes) {
    std::vector<std::int32_t> integers(codes.size());
    std::transform(codes.begin(), codes.end(), integers.begin(), ToInt32);
    return integers;
}

std::vector<double> ToDoubles(std::span<const std::int32_t> codes) {
    return {codes.begin(), codes.end()};
}

}  // namespace vx3260
