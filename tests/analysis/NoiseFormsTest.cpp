#include "analysis/AuxNoiseForm.h"
#include "analysis/MainNoiseForm.h"

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QPushButton>

#include "numbers/RuntimeError.h"
#include "support/Forms.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

QString FromView(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

class NoiseFormsTest : public testing::Test {
  protected:
    void Fill(std::vector<double> codes) {
        bench.state.MainCodeCount = static_cast<std::int16_t>(codes.size());
        bench.state.MainCodes = std::move(codes);
    }

    SimulatedBench bench;
};

TEST_F(NoiseFormsTest, ShowsTheFiguresUnderTheirCaptions) {
    Fill({8388608, 8388612, 8388616});
    bench.Chip().Preset(mainControlAt, 0x80);
    const MainNoiseForm form(*bench.services);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("VX3260 Evaluation Software - Noise Analysis"));
    const NoiseTexts texts =
        AnalyseNoise(bench.state.MainCodes, ConditionsOf(Converter::Main, 2.5F, 0x80)).texts;
    for (std::size_t i = 0; i < NoiseFigures.size(); ++i) {
        const NoiseFigure& figure = NoiseFigures[i];
        auto& value = Find<QLabel>(form, std::string(figure.label).c_str());
        EXPECT_EQ(value.text(), QString::fromStdString(texts[i])) << figure.label;
        EXPECT_EQ(qobject_cast<QGroupBox*>(value.parentWidget())->title(), FromView(figure.frame));
        int captions = 0;
        for (const QLabel* caption : form.findChildren<QLabel*>()) {
            if (caption->buddy() == &value) {
                EXPECT_EQ(caption->text(), FromView(figure.caption));
                ++captions;
            }
        }
        EXPECT_EQ(captions, 1) << figure.label;
    }
    EXPECT_EQ(Find<QLabel>(form, "RangeLabel").text(), QStringLiteral("± 20 mV"));
    EXPECT_EQ(Find<QLabel>(form, "SpanLabel").text(), QStringLiteral("8"));
    EXPECT_EQ(Find<QLabel>(form, "BadgeLabel").text(), QStringLiteral("Simulated board"));
}

TEST_F(NoiseFormsTest, LeavesItsFindingsInTheState) {
    Fill({1000, 1004, 1008});
    bench.state.MainCodes.resize(50, 9e6);  // a block that was interrupted after three codes
    bench.Chip().Preset(mainControlAt, 0x8F);
    const MainNoiseForm form(*bench.services);
    EXPECT_EQ(bench.state.InputRange, 2.56F);
    EXPECT_EQ(bench.state.Polarity, Polarity::Unipolar);
    EXPECT_EQ(bench.state.MaxCode, 1008);
    EXPECT_EQ(bench.state.MinCode, 1000);
    EXPECT_EQ(bench.state.AverageCode, 1004.0F);
    EXPECT_EQ(bench.state.RmsNoiseLsb, 4);
    EXPECT_NEAR(bench.state.LsbSize, 152.587890625, 1e-9);  // nanovolts
}

TEST_F(NoiseFormsTest, AnalysesTheAuxBlockUnderItsOwnConditions) {
    Fill({1, 2, 3});
    bench.state.AuxCodes = {32768, 32770, 32772};
    bench.state.AuxCodeCount = 3;
    bench.Chip().Preset(auxControlAt, 0x80);
    const AuxNoiseForm form(*bench.services);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("VX3260 Evaluation Software - Noise Analysis"));
    ExpectTexts(form, {{"HeadingLabel", "Aux ADC Noise Analysis"},
                       {"RangeLabel", "± REFIN2 / 2"},
                       {"LSBLabel", "38.147 uV"},
                       {"AverageLabel", "8002"},
                       {"AvValueLabel", "76.294 uV"},
                       {"Frame4", "Resolution"},
                       {"ReadingsLabel", "3"},
                       {"ExactRMSLabelLSB", "2.00000 LSB"},
                       {"ExactRMSLabel", "76.2939 uV"},
                       {"StdErrorLabelLSB", "1.15470 LSB"},
                       {"EstPkPkLabel", "503.540 uV"},
                       {"EffectiveLabel", "15.00 bits"},
                       {"NoiseFreeLabel", "14.00 bits"}});
    EXPECT_EQ(bench.state.MaxCode, 32772);
    EXPECT_NEAR(bench.state.LsbSize, 38146.97265625, 1e-6);  // nanovolts
    EXPECT_EQ(bench.state.InputRange, 0.0F) << "the main ADC's";
}

TEST_F(NoiseFormsTest, DoesNotOpenOnATimeout) {
    Fill({8388608, -2147483648.0});
    EXPECT_THROW(MainNoiseForm(*bench.services, nullptr), OverflowError);
}

TEST_F(NoiseFormsTest, HasItsButtons) {
    Fill({1, 2});
    MainNoiseForm form(*bench.services);
    form.show();
    ExpectTexts(
        form,
        {{"Command1", "Plot &Graph"}, {"Command2", "Plot &Histogram"}, {"Command3", "B&ack"}});
    const std::pair<const char*, const char*> plots[] = {{"Command1", "Plot of Codes"},
                                                         {"Command2", "Histogram"}};
    for (const auto& [button, title] : plots) {
        QString opened;
        WhileModal([&] { Find<QPushButton>(form, button).click(); },
                   [&](QDialog& plot) { opened = plot.windowTitle(); });
        EXPECT_EQ(opened,
                  QStringLiteral("VX3260 Evaluation Software - ") + QString::fromLatin1(title));
    }
    EXPECT_EQ(Find<QLabel>(form, "HeadingLabel").text(), QStringLiteral("Main ADC Noise Analysis"));
    for (const char* label : {"AvValueLabel", "AverageLabel", "RMSLabel", "RMSLabelLSB"}) {
        EXPECT_TRUE(Find<QLabel>(form, label).toolTip().contains(QStringLiteral("single")));
    }
    Find<QPushButton>(form, "Command3").click();
    EXPECT_FALSE(form.isVisible());
}

}  // namespace
}  // namespace vx3260
