// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/MainNoiseForm.h"
#include "forms/config/Filterform.h"
#include "forms/data/ReadMainDataForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

using NoiseFormsTest = FormTest;

TEST_F(NoiseFormsTest, ShowTheFiguresOfAnInterruptedBlockAndKeepThem) {
    bench->Fill(Converter::Main, {8388608, 8388612, 8388616});
    bench->state.MainCodes.resize(50, 9e6);  // interrupted after three codes
    Preset(mainControlAt, 0x88);
    Open<MainNoiseForm>();
    Expect(
        "CodesLabel: 3 | RangeLabel: 20 mV | LSBLabel: 1.192 nV | RefLabel: 2.50 V | "
        "RMSLabel: 4.77 nV | PkPkLabel: 9.537 nV | AvValueLabel: 10.000 mV | RMSLabelLSB: 4 | "
        "AverageLabel: 800004 | SpanLabel: 8 | MaxLabel: 800008 | MinLabel: 800000");
    for (const char* label : {"AvValueLabel", "AverageLabel", "RMSLabel", "RMSLabelLSB"}) {
        EXPECT_TRUE(Find(*form, label).toolTip().contains(QStringLiteral("single")));
    }
    EXPECT_EQ(bench->state.InputRange, 0.02F);
    EXPECT_EQ(bench->state.Polarity, Polarity::Unipolar);
    EXPECT_EQ(bench->state.MaxCode, 8388616);
    EXPECT_EQ(bench->state.MinCode, 8388608);
    EXPECT_EQ(bench->state.AverageCode, 8388612.0F);
    EXPECT_EQ(bench->state.RmsNoiseLsb, 4);
    EXPECT_NEAR(bench->state.LsbSize, 1.1920928955, 1e-9);  // nanovolts
    EXPECT_EQ(OpenedBy(*form, "Command1"), "PlotForm: Plot of Codes");
    EXPECT_EQ(OpenedBy(*form, "Command2"), "HistogramForm: Histogram");
    ClickOn("Command3");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(NoiseFormsTest, UseTheConditionsOfTheReadingForWhatIsNotDesigned) {
    Open<ReadMainDataForm>();
    Find<QLineEdit>(*form, "NumCodesText").setText("20");
    ClickOn("Command1");
    Preset(mainControlAt, 0x80);
    Open<MainNoiseForm>();
    Expect("RangeLabel: ± 20 mV");
    EXPECT_TRUE(TextOf(*form, "ReadingLabel")
                    .starts_with("Read at ± 2.56V, bipolar, reference 2.5 V, channel AIN1-AIN2, "));
    Expect(
        "ChangeLabel: Read at ± 2.56V, bipolar; the chip is now at ± 20 mV: the volts below use "
        "the chip's present range");
    EXPECT_NE(TextOf(*form, "ExactRMSLabel").find(" uV ("), std::string::npos);
    EXPECT_EQ(bench->state.MainConditions->registers.ValueOf(RegisterMap::Filter), std::nullopt);
    Open<Filterform>();
    EXPECT_EQ(bench->state.MainConditions->registers.ValueOf(RegisterMap::Filter), 0x45);

    bench->Fill(Converter::Main, std::vector<double>(10, 8388608));
    bench->state.MainConditions.reset();
    Open<MainNoiseForm>();
    Expect("ReadingLabel: Conditions of the reading unknown | ChangeLabel:");
}

}  // namespace
}  // namespace vx3260::test
