// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <boost/math/distributions/chi_squared.hpp>
#include <cmath>

#include "acquisition/Reading.h"
#include "analysis/Histogram.h"
#include "analysis/NoiseTexts.h"
#include "link/Register.h"
#include "numbers/NumberText.h"
#include "ports/SimulatedPort.h"

namespace vx3260 {
namespace {

const ConversionConditions aux = ConditionsOf(Converter::Aux, 2.5F, 0x01);

std::string TextOf(const NoiseAnalysis& analysis, std::string_view label) {
    for (const ResolutionRow& row : ResolutionRows) {
        const ResolutionText text = TextOf(analysis, row.figure);
        if (row.label == label || row.voltsLabel == label) {
            return row.label == label ? text.figure : text.volts;
        }
    }
    return {};
}

/// What scipy gives for these codes: stats.skew, kurtosis, normaltest and chi2.ppf.
TEST(Figures, AgreeWithAnIndependentImplementation) {
    std::vector<double> codes;
    for (int i = 0; i < 40; ++i) {
        codes.push_back(32768 + i * i % 37 - 9);
    }
    const NoiseAnalysis analysis = AnalyseNoise(codes, aux);
    const std::pair<double, double> cases[] = {
        {*analysis.shape.moments.skewness, 0.1271519707195065},
        {*analysis.shape.moments.excessKurtosis, -1.457386393410928},
        {*analysis.shape.moments.lag1Autocorrelation, 0.2729422110662754},
        {*analysis.shape.normalityP, 1.0387294630304999e-05},
        {analysis.resolution.rmsNoiseLimits->low, 9.909231146494802},
        {analysis.resolution.rmsNoiseLimits->high, 15.532727003328425},
    };
    for (const auto& [figure, expected] : cases) {
        EXPECT_NEAR(figure, expected, std::abs(expected) * 1e-9);
    }
}

TEST(Figures, AreDefinedOrNameThatTheyAreNot) {
    const std::vector<double> quiet(5000, 32768);
    std::vector<double> oneOdd = quiet;
    oneOdd[7] = 32769;
    const ConversionConditions shortWord = ConditionsOf(Converter::Main, 2.5F, 0x47);
    const ConversionConditions main = ConditionsOf(Converter::Main, 2.5F, 0x07);
    struct Case {
        std::vector<double> codes;
        ConversionConditions conditions;
        std::vector<std::string> texts;
    };
    const std::vector<Case> cases{
        {{32770},
         aux,
         {"1", "32770", "2 LSB", "not defined", "not defined", "not defined", "not defined",
          "not defined"}},
        {{32768, 32772},
         aux,
         {"2", "32770.0 ± 2.0", "2.0 ± 2.0 LSB", "3 LSB (1 to 90)", "19 LSB (8 to 596)",
          "14.5 bits (9.5 to 15.7)", "11.8 bits (6.8 to 12.9)", "14.00 bits, N = 2"}},
        {quiet,
         aux,
         {"5000", "32768.00 ± 0.29", "0.00 ± 0.29 LSB", "0 LSB", "0 LSB", "≥ 16 bits",
          "≥ 15.07 bits", "≥ 16 bits, N = 5000"}},
        {oneOdd,
         aux,
         {"5000", "32768.00 ± 0.29", "0.00 ± 0.29 LSB", "0.01414 LSB (0.01387 to 0.01442)",
          "0.09334 LSB (0.09154 to 0.09520)", "≥ 16 bits", "≥ 15.07 bits", "16.00 bits, N = 5000"}},
        {{0x800000, 0x800100, 0x800000, 0x800000},
         shortWord,
         {"4", "8388672 ± 64", "0.25 ± 0.25 LSB", "0.50 LSB (0.28 to 1.86)",
          "3.3 LSB (1.9 to 12.3)", "17.00 bits (15.10 to 17.82)", "14.28 bits (12.38 to 15.10)",
          "16.00 bits, N = 4"}},
        {{-2147483648.0, -2147483647.0},
         main,
         {"2", "-2147483647.50 ± 0.50", "-2155872255.50 ± 0.50 LSB", "0.7 LSB (0.3 to 22.6)",
          "5 LSB (2 to 149)", "24.5 bits (19.5 to 25.7)", "21.8 bits (16.8 to 22.9)",
          "24.00 bits, N = 2"}},
        {{0, 2147483647}, main, {"2"}},
        {std::vector<double>(32767, -2147483648.0), shortWord, {"32767"}},
    };
    for (const auto& [codes, conditions, expected] : cases) {
        const NoiseAnalysis analysis = AnalyseNoise(codes, conditions);
        std::string all;
        for (std::size_t i = 0; i < ResolutionRows.size(); ++i) {
            const ResolutionText text = TextOf(analysis, ResolutionRows.at(i).figure);
            all += text.figure + "|" + text.volts + "|";
            if (i < expected.size()) {
                EXPECT_EQ(text.figure, expected[i]) << ResolutionRows.at(i).caption;
            }
        }
        const NormalTexts texts = TextsOf(ComputeNormalFigures(codes, conditions.codeStep));
        all += texts.mean + texts.sigma + texts.skewness + texts.excessKurtosis + texts.normality;
        EXPECT_EQ(all.find("nan"), std::string::npos) << all;
        EXPECT_EQ(all.find("inf"), std::string::npos) << all;
    }
    EXPECT_EQ(TextOf(AnalyseNoise(quiet, aux), "ExactMeanLabel"), "0 ± 22 uV");
    EXPECT_EQ(AnalyseNoise(std::vector<double>{1, 2}, shortWord).own.codeBits, 24)
        << "codes that 16 bits do not have";
}

TEST(Figures, HaveTwoDigitsOfTheirUncertainty) {
    const std::pair<double, int> cases[] = {{5.9, 1},  {9.94, 1},   {9.96, 0},   {59, 0},
                                            {5900, 0}, {0.0995, 2}, {0.0994, 3}, {0.29, 2}};
    for (const auto& [uncertainty, decimals] : cases) {
        EXPECT_EQ(DecimalsFor(uncertainty), decimals) << uncertainty;
    }
}

/// Pools bins at both ends, so that 5 readings or more are expected of each.
double ChiSquareP(const Histogram& histogram, const NormalFit& fit, std::size_t readings) {
    double chiSquare = 0;
    int bins = 0;
    double counted = 0;
    double expected = 0;
    for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
        counted += static_cast<double>(histogram.counts[bin]);
        expected += NormalCount(histogram.CentreOf(bin), fit, readings, histogram.binWidth);
        if (expected >= 5) {
            chiSquare += (counted - expected) * (counted - expected) / expected;
            ++bins;
            counted = expected = 0;
        }
    }
    return cdf(complement(boost::math::chi_squared(std::max(1, bins - 3)), chiSquare));
}

TEST(Figures, ExpectedCountsFitTheSimulatedAuxConverter) {
    SimulatedPort port;
    constexpr std::int16_t address = 888;
    constexpr std::int16_t count = 3000;
    ASSERT_NE(port.ClaimParallelPort(1, -1), 0);
    Register(port, address, RegisterMap::Filter).WriteValue(0x0D);
    Register(port, address, RegisterMap::Mode).WriteValue(RegisterMap::ContinuousConversion);
    ConverterReader reader(port, address, Converter::Aux);
    reader.ReadControls();
    std::vector<double> codes(count);
    std::int16_t read = 0;
    ReadBlock(reader, {codes, read}, count, {});
    ASSERT_EQ(read, count);
    const NoiseAnalysis analysis = AnalyseNoise(codes, aux);
    const Histogram histogram = CountCodes(codes, 1);
    ASSERT_GE(histogram.counts.size(), 4U);
    EXPECT_GT(ChiSquareP(histogram, analysis.normal, codes.size()), 1e-3);
    const NormalFit uncorrected{analysis.exact.mean, analysis.exact.sigma};
    EXPECT_LT(ChiSquareP(histogram, uncorrected, codes.size()), 1e-3) << "the rounding counts";
}

}  // namespace
}  // namespace vx3260
