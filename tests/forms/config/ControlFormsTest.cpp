// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/AuxControlForm.h"
#include "forms/config/MainControlForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

using ControlFormsTest = FormTest;

TEST_F(ControlFormsTest, NameChannelsByChconWhenTheyOpen) {
    const char* const cleared =
        "OptAIN1_2: AIN1 - AIN2 | OptAIN3_4: AIN3 - AIN4 | OptAIN2_2: AIN2 - AIN2 | "
        "OptAIN3_2: AIN3 - AIN2";
    Open<AuxControlForm>();
    Expect(
        "OptAGND_AGND: AGND - AGND | OptTemp: TEMP SENSOR | OptAIN5_6: AIN5 - AIN6 | "
        "OptAIN4_Agnd: AIN4 - AGND | OptAIN3_Agnd: AIN3 - AGND | AuxControlLabel: 185");
    Open<MainControlForm>();
    Expect(cleared);
    Preset(modeAt, 0x13);
    ClickOn("OptAIN3_4");
    Expect(cleared);
    Open<MainControlForm>();
    Expect(
        "OptAIN1_2: AIN1 - AIN4 | OptAIN3_4: AIN3 - AIN4 | OptAIN2_2: AIN4 - AIN4 | "
        "OptAIN3_2: AIN2 - AIN4");
    Open<AuxControlForm>();
    Expect("OptAIN4_Agnd: AIN6 - AGND | OptAIN3_Agnd: AIN5 - AGND");
}

TEST_F(ControlFormsTest, MainNamesRangesByPolarityAndPublishesBoth) {
    Preset(mainControlAt, 0x0E);
    Open<MainControlForm>();
    EXPECT_EQ(bench->state.InputRange, 1.28F);
    EXPECT_EQ(bench->state.Polarity, Polarity::Unipolar);
    Expect(
        "Opt20: 0 - 20 mV | Opt40: 0 - 40 mV | Opt80: 0 - 80 mV | Opt160: 0 - 160 mV | "
        "Opt320: 0 - 320 mV | Opt640: 0 - 640 mV | Opt128: 0 - 1.28 V | Opt256: 0 - 2.56 V | "
        "mainControlLabel: 14");  // decimal, until a click
    ClickOn("OptMainEn");
    Expect("mainControlLabel: 8E");
    ClickOn("OptBipolar");
    EXPECT_EQ(bench->state.Polarity, Polarity::Bipolar);
    Expect(
        "Opt20: ± 20 mV | Opt40: ± 40 mV | Opt80: ± 80 mV | Opt160: ± 160 mV | "
        "Opt320: ± 320 mV | Opt640: ± 640 mV | Opt128: ± 1.28 V | Opt256: ± 2.56 V");
    const std::pair<const char*, float> ranges[] = {
        {"Opt20", 0.02F},  {"Opt40", 0.04F},  {"Opt80", 0.08F},  {"Opt160", 0.16F},
        {"Opt320", 0.32F}, {"Opt640", 0.64F}, {"Opt128", 1.28F}, {"Opt256", 2.56F}};
    for (const auto& [option, range] : ranges) {
        ClickOn(option);
        EXPECT_EQ(bench->state.InputRange, range) << option;
    }
    Preset(mainControlAt, 0x47);
    ClickOn("Opt640");
    EXPECT_TRUE(Checked(*form, "OptMainDis"));
    EXPECT_TRUE(Checked(*form, "Opt16"));

    UseBoardWith("dout-stuck-low");
    Open<MainControlForm>();
    ClickOn("Opt640");
    ClickOn("OptUnipolar");
    EXPECT_EQ(bench->state.InputRange, 0.64F) << "as clicked, though the chip did not take it";
    EXPECT_EQ(bench->state.Polarity, Polarity::Unipolar);
}

TEST_F(ControlFormsTest, AuxLeavesARangeForTheAnalysisWithHalfTheReferenceOnly) {
    Preset(auxControlAt, 0xD1);
    Open<AuxControlForm>();
    for (const char* option :
         {"OptAIN3_Agnd", "OptAIN4_Agnd", "OptAIN5_6", "OptTemp", "OptAGND_AGND"}) {
        EXPECT_FALSE(Checked(*form, option)) << option;
    }
    EXPECT_EQ(bench->state.InputRange, 0.0F);
    ClickOn("OptREF2");
    EXPECT_EQ(bench->state.InputRange, 0.04F);
    bench->state.InputRange = 1;
    ClickOn("OptREF");
    EXPECT_EQ(bench->state.InputRange, 1.0F);
}

TEST_F(ControlFormsTest, AuxLosesTheDashUntilTheNextRefreshOfAnotherCause) {
    Preset(auxControlAt, 0xB1);
    Open<AuxControlForm>();
    const std::pair<const char*, const char*> clicks[] = {
        {"OptBipolar", "OptREF: ± REFIN2 | OptREF2: ± REFIN2 / 2"},  // selected already
        {"OptUnipolar", "OptREF: 0 REFIN2 | OptREF2: 0 - REFIN2 / 2"},
        {"OptTemp", "OptREF: 0 REFIN2 | OptREF2: 0 - REFIN2 / 2"},  // selected already
        {"OptAIN5_6", "OptREF: 0 - REFIN2 | OptREF2: 0 - REFIN2 / 2"},
        {"OptBipolar", "OptREF: ± REFIN2 | OptREF2: ± REFIN2 / 2"}};
    for (const auto& [option, texts] : clicks) {
        ClickOn(option);
        Expect(texts);
        const bool bipolar = Checked(*form, "OptBipolar");
        EXPECT_EQ(bench->state.Polarity, bipolar ? Polarity::Bipolar : Polarity::Unipolar);
    }
}

}  // namespace
}  // namespace vx3260::test
