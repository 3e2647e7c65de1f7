#include "numbers/NumberText.h"

#include <gtest/gtest.h>

#include <limits>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

TEST(NumberText, FormatsByPlaces) {
    struct {
        double value;
        const char* format;
        const char* text;
    } const cases[] = {
        {2.5, "#.00", "2.50"},
        {2.048, "#.00", "2.05"},
        {0.25, "#.00", ".25"},
        {0, "#.00", ".00"},
        {0.004, "#.00", ".00"},
        {0.005, "#.00", ".01"},
        {12.5, "##.00", "12.50"},
        {123.5, "##.00", "123.50"},
        {19.787439, "#.##", "19.79"},
        {20, "#.##", "20."},
        {0, "#.##", "."},
        {5.354166, "00.00", "05.35"},
        {105.0256, "00.00", "105.03"},
        {19.787439, "#.##00", "19.7874"},
        {20, "#.##00", "20.0000"},
        {0.305175781, "0.###", "0.305"},
        {0.3, "0.###", "0.3"},
        {305, "0.###", "305."},
        {9.9996, "0.###", "10."},
        {999.9999, "0.00", "1000.00"},
        {1.005, "0.00", "1.01"},  // just below in binary, a half in decimal
        {2.675, "0.00", "2.68"},
        {-1.5, "0.00", "-1.50"},
        {-0.001, "0.00", "0.00"},
        {1e20, "0.00", "100000000000000000000.00"},
        {7, "00", "07"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FormatNumber(c.value, c.format), c.text) << c.value << " as " << c.format;
    }
    EXPECT_THROW(FormatNumber(std::numeric_limits<double>::infinity(), "0.00"), OverflowError);
}

TEST(NumberText, WritesHexadecimalWithoutLeadingZeros) {
    EXPECT_EQ(HexText(0), "0");
    EXPECT_EQ(HexText(0x8ABCDE), "8ABCDE");
    EXPECT_EQ(HexText(-1), "FFFFFFFF");
    EXPECT_EQ(HexText(std::numeric_limits<std::int32_t>::min()), "80000000");
}

TEST(NumberText, ReadsHexadecimalLiterals) {
    struct {
        const char* text;
        std::int32_t value;
    } const cases[] = {
        {"0", 0},          {"7FFF", 32767},      {"8000", -32768},     {"ffff", -1},
        {"08000", 0x8000}, {"0FFFF", 0xFFFF},    {"ABCDEF", 0xABCDEF}, {"80000000", INT32_MIN},
        {"FFFFFFFF", -1},  {"0000FFFF", 0xFFFF},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(HexLiteral(c.text), c.value) << c.text;
    }
    for (const char* text : {"", " ", "12G", "-1", "+1", "1 ", "0x1", "100000000", "1e5."}) {
        EXPECT_THROW(HexLiteral(text), TypeMismatchError) << text;
    }
}

TEST(NumberText, GivesSinglePrecisionItsShortestText) {
    EXPECT_EQ(ShortestText(0.02F * 1000.0F), "20");
    EXPECT_EQ(ShortestText(0.64F * 1000.0F), "640");
    EXPECT_EQ(ShortestText(2.56F), "2.56");
}

TEST(NumberText, KeepsDecimalsOrSignificantDigits) {
    EXPECT_EQ(FixedText(2.5, 2), "2.50");
    EXPECT_EQ(FixedText(-0.4, 0), "0");
    EXPECT_EQ(SignificantText(0.00123456, 3), "0.00123");
    EXPECT_EQ(SignificantText(-123456.7, 3), "-123457");
    EXPECT_EQ(SignificantText(0, 3), "0");
    const struct {
        double volts;
        const char* text;
    } cases[] = {{0, "0 V"},           {-2.5, "-2.500 V"},    {0.9999, "999.9 mV"},
                 {-1e-3, "-1.000 mV"}, {4.31e-6, "4.310 uV"}, {1.2e-10, "0.1200 nV"}};
    for (const auto& c : cases) {
        EXPECT_EQ(VoltsText(c.volts, 4), c.text);
    }
}

}  // namespace
}  // namespace vx3260
