// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/SuspiciousCodes.h"

#include <algorithm>

#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

/// At 16 bits a healthy converter can be quieter than one code, at 24 it cannot.
std::string ReasonsForOneCode(Converter converter) {
    return converter == Converter::Main
               ? "the input is over range or a line is stuck"
               : "the input is over range, a line is stuck or the noise is below one code";
}

}  // namespace

std::vector<std::string> SuspicionsAbout(std::span<const std::int32_t> codes, Converter converter) {
    if (codes.empty()) {
        return {};
    }
    std::vector<std::string> suspicions;
    const auto [smallest, largest] = std::minmax_element(codes.begin(), codes.end());
    if (codes.size() > 1 && *smallest == *largest) {
        suspicions.push_back("all codes are 0x" + HexText(*largest) + "; " +
                             ReasonsForOneCode(converter));
    }
    const std::int32_t largestCode = LargestCodeOf(converter);
    if (*smallest < 0 || *largest > largestCode) {
        suspicions.push_back("there are codes outside 0 to 0x" + HexText(largestCode) +
                             "; is it the right file and notation?");
    }
    return suspicions;
}

}  // namespace vx3260
