// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/CodeText.h"

#include <gtest/gtest.h>

#include "support/Errors.h"

namespace vx3260::test {
namespace {

using Codes = std::vector<std::int32_t>;
constexpr Notation dec = Notation::Decimal;
constexpr Notation hex = Notation::Hexadecimal;

std::string Refusal(std::string_view text, Notation notation) {
    return ErrorOf<BadDataError>([&] { ParseCodes(text, notation, "x"); });
}

TEST(CodeText, WritesOneCodeALine) {
    const Codes codes{8388608, 0, -5, INT32_MIN, INT32_MAX, 0xABCDEF};
    EXPECT_EQ(FormatCodes(codes, dec), " 8388608\n 0\n-5\n-2147483648\n 2147483647\n 11259375\n");
    EXPECT_EQ(FormatCodes(codes, hex), "800000\n0\nFFFFFFFB\n80000000\n7FFFFFFF\nABCDEF\n");
    for (const Notation notation : {dec, hex}) {
        EXPECT_EQ(ParseCodes(FormatCodes(codes, notation), notation, "x").codes, codes);
    }
}

TEST(CodeText, AcceptsWhatEditorsMakeOfAFile) {
    const std::tuple<std::string_view, Notation, Codes> cases[] = {
        {" 1\r\n-2\r\n", dec, {1, -2}},
        {"\xEF\xBB\xBF 1\n2", dec, {1, 2}},
        {" \t7 \t\n8\n \n\n\t\r\n", dec, {7, 8}},
        {"8000\nabcDEF\n00000001\nffffffff\n80000000", hex, {32768, 0xABCDEF, 1, -1, INT32_MIN}},
    };
    for (const auto& [text, notation, codes] : cases) {
        EXPECT_EQ(ParseCodes(text, notation, "x").codes, codes) << text;
    }
}

TEST(CodeText, WarnsOfATextThatMayBeCutOff) {
    for (const std::string text : {"1\n2", "1\n2\r", "1\n "}) {
        EXPECT_EQ(ParseCodes(text, dec, "x").warning,
                  "the last line has no line end; was the file cut off?");
        EXPECT_EQ(ParseCodes(text + "\n", dec, "x").warning, "") << text;
    }
}

TEST(CodeText, RefusesWithLineAndReason) {
    using namespace std::string_view_literals;
    const std::tuple<std::string_view, Notation, std::string> cases[] = {
        {"", dec, "x: line 1: holds no codes"},
        {"\xEF\xBB\xBF\r\n \n", dec, "x: line 1: holds no codes"},
        {"1\n\n2\n", dec, "x: line 2: a blank line where a code is expected"},
        {"1\n2\n1.5\n", dec, "x: line 3: \"1.5\" is not a decimal code"},
        {"1, 2\n", dec, "x: line 1: \"1, 2\" is not a decimal code"},
        {"80F\n", dec, "x: line 1: \"80F\" is not a decimal code"},
        {"1\r2\n", dec, "x: line 1: \"1\\x0D2\" is not a decimal code"},
        {"\xC3\xA4", dec, "x: line 1: \"\\xC3\\xA4\" is not a decimal code"},
        {"0x10", hex, "x: line 1: \"0x10\" is not a hexadecimal code"},
        {"-1", hex, "x: line 1: \"-1\" is not a hexadecimal code"},
        {"2147483648", dec, "x: line 1: \"2147483648\" does not fit into 32 bits"},
        {"1\n-2147483649\n", dec, "x: line 2: \"-2147483649\" does not fit into 32 bits"},
        {"100000000", hex, "x: line 1: \"100000000\" does not fit into 32 bits"},
        {"000000001", hex, "x: line 1: \"000000001\" does not fit into 32 bits"},
        {"1\n2\0"sv, dec, "x: line 2: binary data, not a text: \"2\\x00\""},
        {"abcdefghijabcdefghijabcdefghijabcdefghijZ", dec,
         "x: line 1: \"abcdefghijabcdefghijabcdefghijabcdefghij...\" is not a decimal code"},
    };
    for (const auto& [text, notation, message] : cases) {
        EXPECT_EQ(Refusal(text, notation), message) << text;
    }
}

TEST(CodeText, AcceptsAsManyAsABlockCanHave) {
    Codes codes(MaxCodesInBlock, 5);
    EXPECT_EQ(ParseCodes(FormatCodes(codes, dec) + "\n", dec, "x").codes.size(), MaxCodesInBlock);
    codes.push_back(5);
    EXPECT_EQ(Refusal(FormatCodes(codes, dec), dec),
              "x: line 32768: more than the 32767 codes that a block can have");
}

}  // namespace
}  // namespace vx3260::test
