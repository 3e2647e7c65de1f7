#include <gtest/gtest.h>

#include "forms/config/AuxControlForm.h"
#include "forms/config/MainControlForm.h"
#include "support/Forms.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

void Click(const QWidget& form, const char* option) {
    Find<QRadioButton>(form, option).click();
}

TEST(MainControlForm, HasItsTexts) {
    SimulatedBench bench;
    const MainControlForm form(*bench.services);
    EXPECT_EQ(form.windowTitle(),
              QStringLiteral("VX3260 Evaluation Software - Program Control Register"));
    ExpectTexts(form, {{"Frame2", "Select an Input Channel"},
                       {"Frame3", "Select an Input Range"},
                       {"Frame4", "Bipolar / Unipolar Operation"},
                       {"Frame5", "Main ADC Word Length"},
                       {"Frame6", "Main ADC Enable / Disable"},
                       {"Frame7", "Current Contents of ADC Control Register"},
                       {"Label9", "Main ADC Control Register"},
                       {"OptUnipolar", "Unipolar"},
                       {"OptBipolar", "Bipolar"},
                       {"Opt16", "16 Bit Word"},
                       {"Opt24", "24 Bit Word"},
                       {"OptMainDis", "Disable Main ADC"},
                       {"OptMainEn", "Enable Main ADC"},
                       {"Command1", "B&ack"}});
}

TEST(MainControlForm, NamesChannelsByChconWhenItOpens) {
    SimulatedBench bench;
    const MainControlForm cleared(*bench.services);
    ExpectTexts(cleared, {{"OptAIN1_2", "AIN1 - AIN2"},
                          {"OptAIN3_4", "AIN3 - AIN4"},
                          {"OptAIN2_2", "AIN2 - AIN2"},
                          {"OptAIN3_2", "AIN3 - AIN2"}});
    bench.Chip().Preset(modeAt, 0x13);
    Click(cleared, "OptAIN3_4");
    ExpectTexts(cleared, {{"OptAIN1_2", "AIN1 - AIN2"}});
    const MainControlForm set(*bench.services);
    ExpectTexts(set, {{"OptAIN1_2", "AIN1 - AIN4"},
                      {"OptAIN3_4", "AIN3 - AIN4"},
                      {"OptAIN2_2", "AIN4 - AIN4"},
                      {"OptAIN3_2", "AIN2 - AIN4"}});
}

TEST(MainControlForm, NamesRangesByPolarityAndPublishesBoth) {
    SimulatedBench bench;
    bench.Chip().Preset(mainControlAt, 0x0E);
    const MainControlForm form(*bench.services);
    EXPECT_EQ(bench.state.InputRange, 1.28F);
    EXPECT_EQ(bench.state.Polarity, Polarity::Unipolar);
    EXPECT_EQ(bench.Chip().Contents(mainControlAt), 0x0EU);
    ExpectTexts(form, {{"Opt20", "0 - 20 mV"},
                       {"Opt40", "0 - 40 mV"},
                       {"Opt80", "0 - 80 mV"},
                       {"Opt160", "0 - 160 mV"},
                       {"Opt320", "0 - 320 mV"},
                       {"Opt640", "0 - 640 mV"},
                       {"Opt128", "0 - 1.28 V"},
                       {"Opt256", "0 - 2.56 V"}});
    Click(form, "OptBipolar");
    EXPECT_EQ(bench.state.Polarity, Polarity::Bipolar);
    ExpectTexts(form, {{"Opt20", "± 20 mV"},
                       {"Opt40", "± 40 mV"},
                       {"Opt80", "± 80 mV"},
                       {"Opt160", "± 160 mV"},
                       {"Opt320", "± 320 mV"},
                       {"Opt640", "± 640 mV"},
                       {"Opt128", "± 1.28 V"},
                       {"Opt256", "± 2.56 V"}});
    const struct {
        const char* option;
        float range;
    } ranges[] = {{"Opt20", 0.02F},  {"Opt40", 0.04F},  {"Opt80", 0.08F},  {"Opt160", 0.16F},
                  {"Opt320", 0.32F}, {"Opt640", 0.64F}, {"Opt128", 1.28F}, {"Opt256", 2.56F}};
    for (const auto& r : ranges) {
        Click(form, r.option);
        EXPECT_EQ(bench.state.InputRange, r.range) << r.option;
    }
}

TEST(ControlForms, ShowDecimalAfterLoadingAndHexadecimalAfterAClick) {
    SimulatedBench bench;
    bench.Chip().Preset(mainControlAt, 0x0E);
    const MainControlForm form(*bench.services);
    ExpectTexts(form, {{"mainControlLabel", "14"}});
    Click(form, "OptMainEn");
    ExpectTexts(form, {{"mainControlLabel", "8E"}});
    const MainControlForm again(*bench.services);
    ExpectTexts(again, {{"mainControlLabel", "142"}});
    const AuxControlForm aux(*bench.services);
    ExpectTexts(aux, {{"AuxControlLabel", "185"}});
}

TEST(MainControlForm, FollowsEnableAndWordLengthOnEachRefresh) {
    SimulatedBench bench;
    const MainControlForm form(*bench.services);
    bench.Chip().Preset(mainControlAt, 0x47);
    bench.messages.atBox = [] { ADD_FAILURE(); };
    Click(form, "Opt640");
    EXPECT_TRUE(Find<QRadioButton>(form, "OptMainDis").isChecked());
    EXPECT_TRUE(Find<QRadioButton>(form, "Opt16").isChecked());
}

TEST(ControlForms, KeepTheClickedConditionsWhereTheChipDidNotTakeThem) {
    Faults faults;
    AddFault("dout-stuck-low", faults);
    SimulatedBench bench(faults);
    const MainControlForm main(*bench.services);
    Click(main, "Opt640");
    Click(main, "OptUnipolar");
    EXPECT_EQ(bench.state.InputRange, 0.64F);
    EXPECT_EQ(bench.state.Polarity, Polarity::Unipolar);
}

TEST(AuxControlForm, HasItsTexts) {
    SimulatedBench bench;
    const AuxControlForm form(*bench.services);
    EXPECT_EQ(form.windowTitle(),
              QStringLiteral("VX3260 Evaluation Software - Program Control Register"));
    ExpectTexts(form, {{"Frame2", "Select an Input Channel"},
                       {"Frame3", "Select an Input Range"},
                       {"Frame4", "Bipolar / Unipolar Operation"},
                       {"Frame5", "Aux ADC Enable / Disable"},
                       {"Frame6", "Current Contents of ADC Control Register"},
                       {"Label9", "Aux ADC Control Register"},
                       {"OptAGND_AGND", "AGND - AGND"},
                       {"OptTemp", "TEMP SENSOR"},
                       {"OptAIN5_6", "AIN5 - AIN6"},
                       {"OptAIN4_Agnd", "AIN4 - AGND"},
                       {"OptAIN3_Agnd", "AIN3 - AGND"},
                       {"OptAuxDis", "Disable Aux ADC"},
                       {"OptAuxEn", "Enable Aux ADC"},
                       {"Command1", "B&ack"}});
    bench.Chip().Preset(modeAt, 0x13);
    const AuxControlForm chcon(*bench.services);
    ExpectTexts(chcon, {{"OptAIN4_Agnd", "AIN6 - AGND"}, {"OptAIN3_Agnd", "AIN5 - AGND"}});
}

TEST(AuxControlForm, SelectsNoChannelForTheCodesWithoutOne) {
    for (const std::uint32_t control : {0xD1U, 0xE1U, 0xF1U}) {
        SimulatedBench bench;
        bench.Chip().Preset(auxControlAt, control);
        const AuxControlForm form(*bench.services);
        for (const char* option :
             {"OptAIN3_Agnd", "OptAIN4_Agnd", "OptAIN5_6", "OptTemp", "OptAGND_AGND"}) {
            EXPECT_FALSE(Find<QRadioButton>(form, option).isChecked()) << option;
        }
        EXPECT_EQ(bench.state.InputRange, 0.0F);
    }
}

TEST(AuxControlForm, LeavesARangeForTheAnalysisWithHalfTheReferenceOnly) {
    SimulatedBench bench;
    bench.Chip().Preset(auxControlAt, 0x80);
    const AuxControlForm form(*bench.services);
    EXPECT_EQ(bench.state.InputRange, 0.04F);
    EXPECT_EQ(bench.Chip().Contents(auxControlAt), 0x80U);
    bench.state.InputRange = 1;
    Click(form, "OptREF");
    EXPECT_EQ(bench.state.InputRange, 1.0F);
    Click(form, "OptREF2");
    EXPECT_EQ(bench.state.InputRange, 0.04F);
}

TEST(AuxControlForm, LosesTheDashUntilTheNextRefreshOfAnotherCause) {
    SimulatedBench bench;
    bench.Chip().Preset(auxControlAt, 0xB1);
    const AuxControlForm form(*bench.services);
    ExpectTexts(form, {{"OptREF", "± REFIN2"}, {"OptREF2", "± REFIN2 / 2"}});
    Click(form, "OptUnipolar");
    EXPECT_EQ(bench.state.Polarity, Polarity::Unipolar);
    ExpectTexts(form, {{"OptREF", "0 REFIN2"}, {"OptREF2", "0 - REFIN2 / 2"}});
    Click(form, "OptTemp");  // selected already
    ExpectTexts(form, {{"OptREF", "0 REFIN2"}});
    Click(form, "OptAIN5_6");
    ExpectTexts(form, {{"OptREF", "0 - REFIN2"}, {"OptREF2", "0 - REFIN2 / 2"}});
    Click(form, "OptBipolar");
    EXPECT_EQ(bench.state.Polarity, Polarity::Bipolar);
    ExpectTexts(form, {{"OptREF", "± REFIN2"}, {"OptREF2", "± REFIN2 / 2"}});
    Click(form, "OptUnipolar");
    const AuxControlForm again(*bench.services);
    ExpectTexts(again, {{"OptREF", "0 - REFIN2"}});
}

}  // namespace
}  // namespace vx3260
