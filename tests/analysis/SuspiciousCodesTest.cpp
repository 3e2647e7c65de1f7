// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/SuspiciousCodes.h"

#include <gtest/gtest.h>

namespace vx3260 {
namespace {

TEST(SuspiciousCodes, AreOutOfRangeOrAllEqual) {
    using Texts = std::vector<std::string>;
    const std::string notation = "; is it the right file and notation?";
    const std::tuple<Converter, std::vector<std::int32_t>, Texts> cases[] = {
        {Converter::Main, {}, {}},
        {Converter::Main, {5}, {}},
        {Converter::Main, {0, 0xFFFFFF}, {}},
        {Converter::Main, {0, 0x1000000}, {"there are codes outside 0 to 0xFFFFFF" + notation}},
        {Converter::Main,
         {5, 5},
         {"all codes are 0x5; the input is over range or a line is stuck"}},
        {Converter::Aux, {0, 0xFFFF}, {}},
        {Converter::Aux, {INT32_MIN}, {"there are codes outside 0 to 0xFFFF" + notation}},
        {Converter::Aux,
         {0x10000, 0x10000},
         {"all codes are 0x10000; the input is over range, a line is stuck or the noise is below "
          "one code",
          "there are codes outside 0 to 0xFFFF" + notation}},
    };
    for (const auto& [converter, codes, suspicions] : cases) {
        EXPECT_EQ(SuspicionsAbout(codes, converter), suspicions);
    }
}

}  // namespace
}  // namespace vx3260
