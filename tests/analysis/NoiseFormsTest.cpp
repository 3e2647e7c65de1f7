// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseTexts.h"
#include "analysis/forms/AuxNoiseForm.h"
#include "analysis/forms/MainNoiseForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

using NoiseFormsTest = FormTest;

TEST_F(NoiseFormsTest, ShowTheFiguresUnderTheirCaptions) {
    bench->Fill(Converter::Main, {8388608, 8388612, 8388616});
    Preset(mainControlAt, 0x80);
    Open<MainNoiseForm>();
    const NoiseAnalysis analysis =
        AnalyseNoise(bench->state.MainCodes, ConditionsOf(Converter::Main, 2.5F, 0x80));
    for (const NoiseRow& row : NoiseRows) {
        const auto& value = Find<QLabel>(*form, std::string(row.label));
        EXPECT_EQ(TextOf(value), vx3260::TextOf(analysis, row.figure)) << row.label;
        EXPECT_EQ(TextOf(*value.parentWidget()), row.frame);
        std::string captions;
        for (const QLabel* caption : form->findChildren<QLabel*>()) {
            captions += caption->buddy() == &value ? TextOf(*caption) : "";
        }
        EXPECT_EQ(captions, row.caption);
    }
    Expect(
        "MainNoiseForm: VX3260 Evaluation Software - Noise Analysis | "
        "HeadingLabel: Main ADC Noise Analysis | RangeLabel: ± 20 mV | SpanLabel: 8 | "
        "BadgeLabel: Simulated board | Command1: Plot &Graph | Command2: Plot &Histogram | "
        "Command3: B&ack");
    for (const char* label : {"AvValueLabel", "AverageLabel", "RMSLabel", "RMSLabelLSB"}) {
        EXPECT_TRUE(Find(*form, label).toolTip().contains(QStringLiteral("single")));
    }
    EXPECT_EQ(OpenedBy(*form, "Command1"), "PlotForm: Plot of Codes");
    EXPECT_EQ(OpenedBy(*form, "Command2"), "HistogramForm: Histogram");
    ClickOn("Command3");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(NoiseFormsTest, LeaveTheirFindingsInTheState) {
    bench->Fill(Converter::Main, {1000, 1004, 1008});
    bench->state.MainCodes.resize(50, 9e6);  // a block that was interrupted after three codes
    Preset(mainControlAt, 0x8F);
    Open<MainNoiseForm>();
    EXPECT_EQ(bench->state.InputRange, 2.56F);
    EXPECT_EQ(bench->state.Polarity, Polarity::Unipolar);
    EXPECT_EQ(bench->state.MaxCode, 1008);
    EXPECT_EQ(bench->state.MinCode, 1000);
    EXPECT_EQ(bench->state.AverageCode, 1004.0F);
    EXPECT_EQ(bench->state.RmsNoiseLsb, 4);
    EXPECT_NEAR(bench->state.LsbSize, 152.587890625, 1e-9);  // nanovolts
}

TEST_F(NoiseFormsTest, AnalyseTheAuxBlockUnderItsOwnConditions) {
    bench->Fill(Converter::Main, {1, 2, 3});
    bench->Fill(Converter::Aux, {32768, 32770, 32772});
    Preset(auxControlAt, 0x80);
    Open<AuxNoiseForm>();
    Expect(
        "AuxNoiseForm: VX3260 Evaluation Software - Noise Analysis | "
        "HeadingLabel: Aux ADC Noise Analysis | RangeLabel: ± REFIN2 / 2 | "
        "LSBLabel: 38.147 uV | AverageLabel: 8002 | AvValueLabel: 76.294 uV | "
        "Frame4: Resolution | ReadingsLabel: 3 | ExactRMSLabelLSB: 2.00000 LSB | "
        "ExactRMSLabel: 76.2939 uV | StdErrorLabelLSB: 1.15470 LSB | "
        "EstPkPkLabel: 503.540 uV | EffectiveLabel: 15.00 bits | "
        "NoiseFreeLabel: 14.00 bits");
    EXPECT_EQ(bench->state.MaxCode, 32772);
    EXPECT_NEAR(bench->state.LsbSize, 38146.97265625, 1e-6);  // nanovolts
    EXPECT_EQ(bench->state.InputRange, 0.0F) << "the main ADC's";
}

}  // namespace
}  // namespace vx3260::test
