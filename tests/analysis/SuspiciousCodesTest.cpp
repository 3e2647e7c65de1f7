#include "analysis/SuspiciousCodes.h"

#include <gtest/gtest.h>

namespace vx3260 {
namespace {

TEST(SuspiciousCodes, AreThoseNoHealthyBoardGives) {
    using Texts = std::vector<std::string>;
    const std::string notation = "; is it the right file and notation?";
    const std::string stuck = "; the input is over range or a line is stuck";
    const std::string quiet =
        "; the input is over range, a line is stuck or the noise is below one code";
    const std::int32_t timeout = -2147483647 - 1;
    const struct {
        Converter converter;
        std::vector<std::int32_t> codes;
        Texts suspicions;
    } cases[] = {
        {Converter::Main, {}, {}},
        {Converter::Main, {5}, {}},
        {Converter::Main, {0, 0xFFFFFF}, {}},
        {Converter::Main, {0, 0x1000000}, {"there are codes outside 0 to 0xFFFFFF" + notation}},
        {Converter::Main, {5, 5}, {"all codes are 0x5" + stuck}},
        {Converter::Aux, {0, 0xFFFF}, {}},
        {Converter::Aux, {0, 0x10000}, {"there are codes outside 0 to 0xFFFF" + notation}},
        {Converter::Aux, {timeout}, {"there are codes outside 0 to 0xFFFF" + notation}},
        {Converter::Aux,
         {-1, -1},
         {"all codes are 0xFFFFFFFF" + quiet, "there are codes outside 0 to 0xFFFF" + notation}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SuspicionsAbout(c.codes, c.converter), c.suspicions);
    }
}

}  // namespace
}  // namespace vx3260
