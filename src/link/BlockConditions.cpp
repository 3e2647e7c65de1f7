// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/BlockConditions.h"

#include "link/FilterRate.h"

namespace vx3260 {

std::optional<double> BlockConditions::NominalRate() const {
    const std::optional<std::int32_t> word = registers.ValueOf(RegisterMap::Filter);
    return word && *word != 0 ? std::optional(UpdateRateOf(*word)) : std::nullopt;
}

std::optional<double> BlockConditions::Interval() const {
    if (meanInterval) {
        return meanInterval;
    }
    const std::optional<double> rate = NominalRate();
    return rate ? std::optional(1 / *rate) : std::nullopt;
}

}  // namespace vx3260
