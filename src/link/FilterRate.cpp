// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/FilterRate.h"

#include <algorithm>
#include <cmath>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

constexpr double clockHertz = 32768;
constexpr double cyclesPerCount = 24;

}  // namespace

double UpdateRateOf(std::int32_t filterWord) {
    if (filterWord == 0) {
        throw OverflowError();
    }
    return clockHertz / (filterWord * cyclesPerCount);
}

std::int32_t FilterWordFor(std::int16_t hertz) {
    const auto word = static_cast<std::int32_t>(std::floor(clockHertz / (hertz * cyclesPerCount)));
    return std::clamp(word, MinFilterWord, MaxFilterWord);
}

std::optional<double> UpdateRate(const RegisterReading& reading) {
    const bool filter = reading.description.access.readByte == RegisterMap::Filter.readByte;
    return filter && reading.value != 0 ? std::optional(UpdateRateOf(reading.value)) : std::nullopt;
}

}  // namespace vx3260
