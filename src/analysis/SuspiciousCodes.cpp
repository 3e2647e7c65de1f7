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
    const auto [least, most] = std::minmax_element(codes.begin(), codes.end());
    if (codes.size() > 1 && *least == *most) {
        suspicions.push_back("all codes are 0x" + HexText(*most) + "; " +
                             ReasonsForOneCode(converter));
    }
    const std::int32_t largestCode = LargestCodeOf(converter);
    if (*least < 0 || *most > largestCode) {
        suspicions.push_back("there are codes outside 0 to 0x" + HexText(largestCode) +
                             "; is it the right file and notation?");
    }
    return suspicions;
}

}  // namespace vx3260
