// SPDX-License-Identifier: GPL-3.0-or-later
#include "numbers/NumberText.h"

#include <gtest/gtest.h>

#include <limits>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

TEST(NumberText, FormatsByPlaces) {
    const std::tuple<double, const char*, const char*> cases[] = {
        {2.5, "#.00", "2.50"},
        {0.25, "#.00", ".25"},
        {0.004, "#.00", ".00"},
        {0.005, "#.00", ".01"},
        {123.5, "##.00", "123.50"},
        {19.787439, "#.##", "19.79"},
        {20, "#.##", "20."},
        {0, "#.##", "."},
        {5.354166, "00.00", "05.35"},
        {20, "#.##00", "20.0000"},
        {0.305175781, "0.###", "0.305"},
        {305, "0.###", "305."},
        {9.9996, "0.###", "10."},
        {999.9999, "0.00", "1000.00"},
        {-1.5, "0.00", "-1.50"},
        {-0.001, "0.00", "0.00"},
        {1e20, "0.00", "100000000000000000000.00"},
        {1.005, "0.00", "1.01"},  // just below in binary, a half in decimal
    };
    for (const auto& [value, format, text] : cases) {
        EXPECT_EQ(FormatNumber(value, format), text) << value << " as " << format;
    }
    EXPECT_THROW(FormatNumber(std::numeric_limits<double>::infinity(), "0.00"), OverflowError);
}

TEST(NumberText, WritesAndReadsHexadecimal) {
    EXPECT_EQ(HexText(0), "0");
    EXPECT_EQ(HexText(-1), "FFFFFFFF");
    const std::pair<const char*, std::int32_t> cases[] = {
        {"7FFF", 32767},      {"8000", -32768},        {"ffff", -1},         {"0FFFF", 0xFFFF},
        {"ABCDEF", 0xABCDEF}, {"80000000", INT32_MIN}, {"0000FFFF", 0xFFFF},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(HexLiteral(text), value) << text;
    }
    for (const char* text : {"", " ", "12G", "-1", "+1", "1 ", "0x1", "100000000", "1e5."}) {
        EXPECT_THROW(HexLiteral(text), TypeMismatchError) << text;
    }
}

TEST(NumberText, KeepsDecimalsOrSignificantDigits) {
    EXPECT_EQ(ShortestText(0.02F * 1000.0F), "20");
    EXPECT_EQ(ShortestText(2.56F), "2.56");
    EXPECT_EQ(FixedText(2.5, 2), "2.50");
    EXPECT_EQ(FixedText(-0.4, 0), "0");
    EXPECT_EQ(SignificantText(0.00123456, 3), "0.00123");
    EXPECT_EQ(SignificantText(-123456.7, 3), "-123457");
    EXPECT_EQ(SignificantText(0, 3), "0");
    const std::pair<double, const char*> cases[] = {
        {0, "0 V"},           {-2.5, "-2.500 V"},    {0.9999, "999.9 mV"},
        {-1e-3, "-1.000 mV"}, {4.31e-6, "4.310 uV"}, {1.2e-10, "0.1200 nV"}};
    for (const auto& [volts, text] : cases) {
        EXPECT_EQ(VoltsText(volts, 4), text);
    }
}

}  // namespace
}  // namespace vx3260
