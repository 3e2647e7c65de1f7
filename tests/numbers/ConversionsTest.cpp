// SPDX-License-Identifier: GPL-3.0-or-later
#include "numbers/Conversions.h"

#include <gtest/gtest.h>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

TEST(Conversions, RoundHalvesToTheEvenNeighbour) {
    EXPECT_EQ(ToInt32(2.5), 2);
    EXPECT_EQ(ToInt32(3.5), 4);
    EXPECT_EQ(ToInt16(-2.5), -2);
    EXPECT_EQ(ToInt16(255.5), 256);
}

TEST(Conversions, RaiseOverflowOutsideTheTarget) {
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_THROW(ToInt16(32767.5), OverflowError);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_THROW(ToInt32(2147483648.0), OverflowError);
    EXPECT_THROW(ToInt32(0.0 / 0.0), OverflowError);
    EXPECT_THROW(Difference(0, INT32_MIN), OverflowError);
    EXPECT_EQ(Product(107374, 20000), 2147480000);
    EXPECT_THROW(Product(107375, 20000), OverflowError);
}

TEST(Conversions, ParseTypedNumbers) {
    EXPECT_EQ(TextToInt16(" 200 "), 200);
    EXPECT_EQ(TextToInt16("+12"), 12);
    EXPECT_EQ(TextToInt32("1e3"), 1000);
    EXPECT_DOUBLE_EQ(TextToDouble("-.5"), -0.5);
    EXPECT_THROW(TextToInt16("70000"), OverflowError);
    EXPECT_THROW(TextToDouble("1e999"), OverflowError);
    for (const char* text : {"", " ", "abc", "12x", "1 2", "2,5", "inf", "nan", "+-1", "0x10"}) {
        EXPECT_THROW(TextToDouble(text), TypeMismatchError) << text;
    }
}

}  // namespace
}  // namespace vx3260
