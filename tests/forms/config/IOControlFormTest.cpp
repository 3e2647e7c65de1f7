// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/IOControlForm.h"

#include "support/Forms.h"

namespace vx3260::test {
namespace {

class IOControlFormTest : public FormTest {
  protected:
    void OpenWith(std::uint32_t value) {
        Preset(ioControlAt, value);
        Open<IOControlForm>();
    }
    bool Visible(const char* name) { return Find(*form, name).isVisible(); }

    /// Tri-state, driven, high, low of a pin: "E" for enabled, "-" for not.
    std::string Enabled(std::initializer_list<const char*> names) {
        std::string text;
        for (const char* name : names) {
            text += Find(*form, name).isEnabled() ? 'E' : '-';
        }
        return text;
    }
    std::string EnabledOfP1() { return Enabled({"OptP1Tri", "OptP1IO", "OptP1High", "OptP1Low"}); }
    std::string EnabledOfP2() { return Enabled({"OptP2Tri", "OptP2IO", "optP2High", "OptP2Low"}); }
};

TEST_F(IOControlFormTest, EnablesWhatThePinsFunctionAllows) {
    const std::pair<std::uint32_t, const char*> atLoad[] = {
        {0x0000, "EE--"}, {0x0010, "EEEE"}, {0x4000, "----"}, {0x4010, "----"}};
    for (const auto& [value, enabled] : atLoad) {
        OpenWith(value);
        EXPECT_EQ(EnabledOfP1(), enabled) << value;
        OpenWith(value << 1);  // P2's bits lie one higher
        EXPECT_EQ(EnabledOfP2(), enabled) << value;
    }
    OpenWith(0x0010);
    const std::pair<const char*, const char*> clicks[] = {
        {"OptP1Power", "----"}, {"OptP1Out", "EEEE"}, {"OptP1Tri", "EE--"},
        {"OptP1Power", "----"}, {"OptP1Out", "EE--"}, {"OptP1IO", "EEEE"}};
    for (const auto& [option, enabled] : clicks) {
        EXPECT_EQ(ClickOn(option), "");
        EXPECT_EQ(EnabledOfP1(), enabled) << option;
    }
}

TEST_F(IOControlFormTest, ShowsTheLevelOfAnInputInPlaceOfItsButtons) {
    OpenWith(0x0000);
    Expect("P3Label: High | P4Label: Low");
    for (const std::string direction : {"OptP3In", "OptP3Out", "OptP3In"}) {
        EXPECT_EQ(ClickOn(direction), "");
        EXPECT_EQ(Visible("P3Label"), direction == "OptP3In");
        EXPECT_EQ(Visible("OptP3High"), direction == "OptP3Out");
        EXPECT_EQ(Visible("optP3Low"), direction == "OptP3Out");
    }
    Preset(ioControlAt, 0x80C8);
    ClickOn("Command2");
    EXPECT_TRUE(Visible("OptP4High"));
    EXPECT_TRUE(Checked(*form, "OptP4High"));
    Expect("P4Label: High | IOControlLabel: 80C8");
}

TEST_F(IOControlFormTest, TakesAnInputForGoodWhileItsPinReadsHigh) {
    OpenWith(0x00C0);
    EXPECT_EQ(ClickOn("OptP3In"), "") << "bit 2 comes back as the pin's level, not as written";
    EXPECT_EQ(Contents(ioControlAt), 0x0084U);
    OpenWith(0x00C8);
    EXPECT_EQ(ClickOn("OptP4In"), "Exclamation: Error Programming VX3260") << "its pin is low";
    EXPECT_TRUE(Visible("OptP4High"));
    UseBoardWith("dout-stuck-high");
    Open<IOControlForm>();
    EXPECT_EQ(ClickOn("OptP4In"), "");
}

}  // namespace
}  // namespace vx3260::test
