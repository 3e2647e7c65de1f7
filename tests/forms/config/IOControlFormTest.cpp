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
    std::string EnabledOf(const std::vector<const char*>& options) {
        std::string text;
        for (const char* option : options) {
            text += Find(*form, option).isEnabled() ? 'E' : '-';
        }
        return text;
    }
};

/// The options of P1 and P2; P2's bits lie one higher.
const struct {
    int shift;
    const char* power;
    const char* output;
    std::vector<const char*> options;
} pins[] = {
    {0, "OptP1Power", "OptP1Out", {"OptP1Tri", "OptP1IO", "OptP1High", "OptP1Low"}},
    {1, "OptP2Power", "optP2Out", {"OptP2Tri", "OptP2IO", "optP2High", "OptP2Low"}},
};

TEST_F(IOControlFormTest, EnablesWhatThePinsFunctionAllows) {
    const std::pair<std::uint32_t, const char*> atLoad[] = {
        {0x0000, "EE--"}, {0x0010, "EEEE"}, {0x4000, "----"}, {0x4010, "----"}};
    for (const auto& [shift, power, output, options] : pins) {
        for (const auto& [value, enabled] : atLoad) {
            OpenWith(value << shift);
            EXPECT_EQ(EnabledOf(options), enabled) << value;
        }
        OpenWith(0x0030);
        const std::pair<const char*, const char*> clicks[] = {
            {power, "----"}, {output, "EEEE"}, {options[0], "EE--"},
            {power, "----"}, {output, "EE--"}, {options[1], "EEEE"}};
        for (const auto& [option, enabled] : clicks) {
            EXPECT_EQ(ClickOn(option), "");
            EXPECT_EQ(EnabledOf(options), enabled) << option;
            EXPECT_EQ(EnabledOf(pins[1 - shift].options), "EEEE") << "the other pin's";
        }
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

TEST_F(IOControlFormTest, AcceptsAnInputWhilePinReadsHigh) {
    OpenWith(0x00C0);
    EXPECT_EQ(ClickOn("OptP3In"), "") << "bit 2 comes back as the pin's level, not as written";
    EXPECT_EQ(Contents(ioControlAt), 0x0084U);
    OpenWith(0x00C8);
    EXPECT_EQ(ClickOn("OptP4In"), "Exclamation: Error Programming VX3260") << "its pin is low";
    EXPECT_TRUE(Visible("OptP4High"));
    UseBoardWith("dout-stuck-high");
    Open<IOControlForm>();
    EXPECT_EQ(ClickOn("OptP4In"), "");
    EXPECT_FALSE(Visible("OptP4High"));
    EXPECT_TRUE(Visible("OptP3High"));
}

}  // namespace
}  // namespace vx3260::test
