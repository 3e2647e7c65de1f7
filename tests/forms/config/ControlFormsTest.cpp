// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/AuxControlForm.h"
#include "forms/config/MainControlForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

using ControlFormsTest = FormTest;

TEST_F(ControlFormsTest, MainPublishesPolarityAndFollowsTwoFields) {
    Preset(mainControlAt, 0x8E);
    Open<MainControlForm>();
    EXPECT_EQ(bench->state.Polarity, Polarity::Unipolar);
    ClickOn("OptBipolar");
    EXPECT_EQ(bench->state.Polarity, Polarity::Bipolar);
    Preset(mainControlAt, 0x47);
    ClickOn("Opt640");
    EXPECT_TRUE(Checked(*form, "OptMainDis"));
    EXPECT_TRUE(Checked(*form, "Opt16"));

    UseBoardWith("dout-stuck-low");
    Open<MainControlForm>();
    ClickOn("OptUnipolar");
    EXPECT_EQ(bench->state.Polarity, Polarity::Unipolar) << "though the chip did not take it";
}

TEST_F(ControlFormsTest, AuxPublishesPolarityAndSelectsKnownChannelsOnly) {
    Preset(auxControlAt, 0xD1);
    Open<AuxControlForm>();
    for (const char* option :
         {"OptAIN3_Agnd", "OptAIN4_Agnd", "OptAIN5_6", "OptTemp", "OptAGND_AGND"}) {
        EXPECT_FALSE(Checked(*form, option)) << option;
    }
    EXPECT_EQ(bench->state.Polarity, Polarity::Bipolar);
    bench->state.InputRange = 1;
    ClickOn("OptUnipolar");
    EXPECT_EQ(bench->state.Polarity, Polarity::Unipolar);
    EXPECT_EQ(bench->state.InputRange, 1.0F);
}

}  // namespace
}  // namespace vx3260::test
