// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

std::string TextOf(const NoiseAnalysis& analysis, std::string_view label) {
    const auto* const row = std::find_if(NoiseRows.begin(), NoiseRows.end(),
                                         [label](const NoiseRow& r) { return r.label == label; });
    return TextOf(analysis, row->figure);
}

NoiseAnalysis Analyse(const std::vector<double>& codes, int rangeCode = 7,
                      Polarity polarity = Polarity::Bipolar, float reference = 2.5F) {
    return AnalyseNoise(codes, MainConditions(reference, rangeCode, polarity));
}

TEST(NoiseAnalysis, NamesRangeAndLsbOfEverySetting) {
    const std::tuple<int, Polarity, const char*, const char*> cases[] = {
        {0, Polarity::Bipolar, "± 20 mV", "2.384 nV"},
        {1, Polarity::Unipolar, "40 mV", "2.384 nV"},
        {2, Polarity::Bipolar, "± 80 mV", "9.537 nV"},
        {3, Polarity::Bipolar, "± 160 mV", "19.073 nV"},
        {4, Polarity::Unipolar, "320 mV", "19.073 nV"},
        {5, Polarity::Bipolar, "± 640 mV", "76.294 nV"},
        {6, Polarity::Bipolar, "± 1.28V", "152.588 nV"},
        {7, Polarity::Unipolar, "2.56V", "152.588 nV"},
    };
    for (const auto& [range, polarity, rangeText, lsb] : cases) {
        const NoiseAnalysis analysis = Analyse({1, 2}, range, polarity);
        EXPECT_EQ(TextOf(analysis, "RangeLabel"), rangeText);
        EXPECT_EQ(TextOf(analysis, "LSBLabel"), lsb) << rangeText;
    }
    EXPECT_EQ(TextOf(Analyse({1, 2}, 7, Polarity::Bipolar, 9.0F), "LSBLabel"), "1.099 uV");
    EXPECT_EQ(TextOf(Analyse({1, 2}, 7, Polarity::Bipolar, 2.048F), "RefLabel"), "2.05 V");
    const ConversionConditions unipolar = ConditionsOf(Converter::Main, 2.5F, 0x8E);
    EXPECT_EQ(unipolar.inputRange, 1.28F);
    EXPECT_EQ(unipolar.polarity, Polarity::Unipolar);
    EXPECT_EQ(RangeText(ConditionsOf(Converter::Main, 2.5F, 0xF0)), "± 20 mV");
}

TEST(NoiseAnalysis, ScalesTheAuxConverterByItsReference) {
    const std::tuple<std::int16_t, const char*, double, double, double> cases[] = {
        {0x01, "± REFIN2", 2.5, 2.5 * 2 / 65536, 32768},
        {0x00, "± REFIN2 / 2", 1.25, 2.5 / 65536, 32768},
        {0xF9, "REFIN2", 2.5, 2.5 / 65536, 0},
        {0x38, "REFIN2 / 2", 1.25, 1.25 / 65536, 0},
    };
    for (const auto& [control, range, fullScale, lsb, zeroCode] : cases) {
        const ConversionConditions conditions = ConditionsOf(Converter::Aux, 2.5F, control);
        EXPECT_EQ(RangeText(conditions), range);
        EXPECT_EQ(conditions.inputRange, fullScale) << range;
        EXPECT_DOUBLE_EQ(conditions.lsbVolts, lsb) << range;
        EXPECT_EQ(conditions.zeroCode, zeroCode) << range;
        EXPECT_NEAR(conditions.VoltsOf(65535.0), fullScale, 2 * lsb) << range;
    }
}

TEST(NoiseAnalysis, NewFiguresUseTheConditionsOfTheBlock) {
    const NoiseAnalysis analysis =
        AnalyseNoise(std::vector<double>{0x100, 0x300}, ConditionsOf(Converter::Main, 2.5F, 0x07),
                     ConditionsOf(Converter::Main, 2.5F, 0x48));
    EXPECT_EQ(TextOf(analysis, "RangeLabel"), "± 2.56V") << "the chip at present";
    EXPECT_EQ(RangeText(analysis.own), "20 mV");
    EXPECT_EQ(analysis.own.codeBits, 16);
    EXPECT_EQ(analysis.own.LargestResult(), 0xFFFF00);
    EXPECT_DOUBLE_EQ(analysis.own.StepVolts(), 0.02 / 65536);
    EXPECT_EQ(ConditionsOf(Converter::Aux, 2.5F, 0x40).LargestResult(), 0xFFFF);
}

TEST(NoiseAnalysis, ShowsASmallBlock) {
    // Exact in single precision: mean 1004, deviations 4, 0 and 4, variance 32 / 2.
    const NoiseAnalysis analysis = Analyse({1000, 1004, 1008});
    const std::pair<const char*, const char*> cases[] = {
        {"CodesLabel", "3"},         {"RefLabel", "2.50 V"},  {"RMSLabelLSB", "4"},
        {"AverageLabel", "3EC"},     {"SpanLabel", "8"},      {"MaxLabel", "3F0"},
        {"MinLabel", "3E8"},         {"RMSLabel", "1.22 uV"}, {"PkPkLabel", "2.441 uV"},
        {"AvValueLabel", "2.560 V"},
    };
    for (const auto& [label, text] : cases) {
        EXPECT_EQ(TextOf(analysis, label), text) << label;
    }
    EXPECT_EQ(analysis.exact.mean, 1004);
    EXPECT_EQ(analysis.exact.sigma, 4);
}

TEST(NoiseAnalysis, ScalesItsVoltages) {
    const std::tuple<double, double, const char*, const char*> cases[] = {
        {8388607, 8388607, "RMSLabel", "0.00 nV"},
        {8388607, 8388607, "PkPkLabel", "0.000 nV"},
        {8388607, 8388607, "AvValueLabel", "305.176 nV"},  // magnitude of -1 code
        {8388608, 8388608, "AvValueLabel", "00.000 nV"},
        {8388618, 8388618, "AvValueLabel", "03.052 uV"},
        {8392704, 8392704, "AvValueLabel", "1.250 mV"},
        {0, 0, "AvValueLabel", "2.560 V"},
        {0, 3276, "PkPkLabel", "999.756 uV"},
        {0, 3277, "PkPkLabel", "1.000 mV"},
        {0, 6553600, "RMSLabel", "1414.21 mV"},
    };
    for (const auto& [one, other, label, text] : cases) {
        EXPECT_EQ(TextOf(Analyse({one, other}), label), text) << label << ' ' << other;
    }
    EXPECT_EQ(TextOf(Analyse({100, 100}, 7, Polarity::Unipolar), "AvValueLabel"), "15.259 uV");
}

TEST(NoiseAnalysis, SumsItsAverageInSinglePrecision) {
    // The sum of 100 codes needs 30 bits; single precision has 24.
    const NoiseAnalysis analysis = Analyse(std::vector<double>(100, 8388611));
    EXPECT_EQ(analysis.statistics.averageCode, 8388609.0F);
    EXPECT_EQ(analysis.statistics.rmsNoiseLsb, 2);
    EXPECT_EQ(analysis.exact.mean, 8388611);
    EXPECT_EQ(analysis.exact.sigma, 0);
}

TEST(NoiseAnalysis, RefusesBlocksThatCannotBeAnalysed) {
    EXPECT_THROW(Analyse({}), SubscriptError);
    EXPECT_THROW(Analyse({8388608, -2147483648.0}), OverflowError);
    EXPECT_THROW(Analyse({0, -2147483648.0}), OverflowError);
}

}  // namespace
}  // namespace vx3260
