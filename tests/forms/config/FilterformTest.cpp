// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/Filterform.h"

#include "support/Forms.h"

namespace vx3260::test {
namespace {

class FilterformTest : public FormTest {
  protected:
    void OpenWith(std::uint32_t word) {
        Preset(modeAt, 0);
        Preset(filterAt, word);
        Open<Filterform>();
    }
};

TEST_F(FilterformTest, ShowsWordRateAndBits) {
    OpenWith(0x45);
    TakePicture(*form, "Filterform");
    Expect(
        "Filterform: VX3260 - Program Filter Register | Label9: Filter Register | "
        "Frame2: Program Filter Word | Label10: Filter Word (Hex) | TxtFilter: 45 | "
        "Label11: Output Update Rate | TxtUpdate: 19.79 | "
        "Frame3: Current Contents of Filter Register | Filterlabel: 45 | Command1: B&ack");
    EXPECT_EQ(BitsOf(*form, 1, 8), "01000101");
    EXPECT_EQ(bench->state.FilterValue, 0x45);
    UseBoardWith("dout-stuck-low");
    Open<Filterform>();
    EXPECT_EQ(bench->messages.Take(), "Plain: Error Reading from VX3260");
    Expect("TxtFilter:");
}

TEST_F(FilterformTest, TakesAWordOnEnter) {
    const std::string most = "Exclamation: The maximum Filter Word is  FF Hex";
    const std::string least = "Exclamation: The minimum Filter Word is D Hex";
    const std::string noHex = "Exclamation: The Filter Word is not a hexadecimal number";
    const std::tuple<const char*, std::string, std::uint32_t, const char*> cases[] = {
        {"FF", "", 0xFF, "TxtFilter: FF | TxtUpdate: 05.35 | Filterlabel: FF"},
        {"d", "", 0x0D, "TxtFilter: D | TxtUpdate: 105.03 | Filterlabel: D"},
        {"0045", "", 0x45, "TxtFilter: 45 | TxtUpdate: 19.79 | Filterlabel: 45"},
        {"100", most, 0x80, "Filterlabel: 80"},
        {"C", least, 0x80, "Filterlabel: 80"},
        {"", least, 0x80, "TxtFilter: 0"},
        {"8000", least, 0x80, "TxtFilter: 8000"},  // negative as 16 bits
        {"-1", noHex, 0x80, "TxtFilter: -1"},
        {"100000000", noHex, 0x80, "TxtFilter: 100000000"},
    };
    for (const auto& [typed, message, word, texts] : cases) {
        OpenWith(0x80);
        EXPECT_EQ(Enter("TxtFilter", typed), message) << typed;
        EXPECT_EQ(Contents(filterAt), word) << typed;
        Expect(texts);
    }
    EXPECT_EQ(Box("TxtFilter").selectedText(), QStringLiteral("100000000"));
}

TEST_F(FilterformTest, TakesARateOnEnter) {
    const std::string range = "Exclamation: Enter a value Between 5.35 Hz and 105.3 Hz";
    const std::string noNumber = "Exclamation: The Output Update Rate is not a number";
    const std::tuple<const char*, std::string, std::uint32_t, const char*> cases[] = {
        {"19.5", "", 0x44, "TxtUpdate: 20.0784"},
        {"5", "", 0xFF, "TxtUpdate: 5.3542"},
        {"105.2", "", 0x0D, "TxtUpdate: 105.0256"},
        {"105.6", range, 0x0D, "TxtUpdate: 105.0256"},
        {"4", range, 0xFF, "TxtUpdate: 5.3542"},
        {"0.001", noNumber, 0x80, "TxtUpdate: 0.001"},
        {"abc", noNumber, 0x80, "TxtUpdate: abc"},
        {"1e5", "Critical: Overflow", 0x80, "TxtUpdate: 1e5"},
    };
    for (const auto& [typed, message, word, texts] : cases) {
        OpenWith(0x80);
        EXPECT_EQ(Enter("TxtUpdate", typed), message) << typed;
        EXPECT_EQ(Contents(filterAt), word) << typed;
        Expect(texts);
    }
}

TEST_F(FilterformTest, SpellsItsErrorTwoWays) {
    OpenWith(0x45);
    Preset(modeAt, 3);  // the chip takes no filter word now
    EXPECT_EQ(Enter("TxtFilter", "20"), "Exclamation: Error programming VX3260");
    Expect("Filterlabel: 45");
    EXPECT_EQ(Enter("TxtUpdate", "50"), "Exclamation: Error Programming VX3260");
}

}  // namespace
}  // namespace vx3260::test
