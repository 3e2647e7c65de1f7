// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/PlotScale.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vx3260 {
namespace {

TEST(PlotScale, StepsAreOneTwoOrFiveTimesAPowerOfTen) {
    const std::tuple<double, int, double, double, double> cases[] = {
        {10, 10, 0, 1, 0.2},        {10, 9, 0, 2, 1},       {41, 20, 0, 5, 1},
        {51, 10, 0, 10, 2},         {0.3, 3, 0, 0.1, 0.02}, {7e-9, 5, 0, 2e-9, 1e-9},
        {16777216, 8, 1, 5e6, 1e6}, {3, 10, 1, 1, 0},       {12, 8, 1, 2, 1},
    };
    for (const auto& [span, mostSteps, least, expected, subStep] : cases) {
        const double step = TickStep(span, mostSteps, least);
        EXPECT_NEAR(step, expected, expected * 1e-9) << span;
        EXPECT_NEAR(SubTickStep(step, least), subStep, expected * 1e-9) << span;
    }
    EXPECT_EQ(TicksIn({8388606.5, 8388612}, 2), (std::vector<double>{8388608, 8388610, 8388612}));
    EXPECT_EQ(TicksIn({-0.3, 0.3}, 0.1).size(), 7U) << "though 0.3 / 0.1 is below 3";
    EXPECT_TRUE(TicksIn({2.1, 2.9}, 1).empty());
}

TEST(PlotScale, VoltTicksDifferInTheirTexts) {
    const std::tuple<AxisRange, const char*, const char*> cases[] = {
        {{15.069e-3, 15.089e-3}, "mV", "15.070"},      // 20 uV at an offset of 15 mV
        {{15.0788e-3, 15.0792e-3}, "mV", "15.07880"},  // 400 nV at the same
        {{-4e-6, 1e-6}, "uV", "-4.0"},
        {{-30e-9, 30e-9}, "nV", "-30"},
        {{-2.56, 2.56}, "V", "-2"},
        {{2.5, 2.5000001}, "V", "2.50000000"},
    };
    for (const auto& [range, unit, first] : cases) {
        const double step = TickStep(range.Span(), 10);
        const VoltsScale scale = VoltsScaleOf(range, step);
        EXPECT_EQ(scale.unitName, unit) << first;
        const std::vector<double> ticks = TicksIn(range, step);
        ASSERT_GE(ticks.size(), 3U) << first;
        EXPECT_NE(scale.TextOf(ticks[0]), scale.TextOf(ticks[1]));
        EXPECT_NEAR(std::stod(scale.TextOf(ticks[1])) * scale.unit, ticks[1], step / 100);
        EXPECT_EQ(scale.TextOf(ticks.front()), first);
    }
}

TEST(PlotScale, LogarithmicTicksAreRound) {
    const std::tuple<AxisRange, int, std::vector<double>> cases[] = {
        {{0.9, 110}, 10, {1, 2, 5, 10, 20, 50, 100}},
        {{0.9, 110}, 6, {1, 10, 100}},
        {{1e-9, 1e-3}, 3, {1e-8, 1e-6, 1e-4}},
        {{1.1, 1.4}, 4, {1.1, 1.2, 1.3, 1.4}},
        {{3, 4}, 1, {3, 4}},
    };
    for (const auto& [range, maxTicks, expected] : cases) {
        const std::vector<double> ticks = LogTicksIn(range, maxTicks).ticks;
        ASSERT_EQ(ticks.size(), expected.size()) << range.lower;
        for (std::size_t i = 0; i < ticks.size(); ++i) {
            EXPECT_NEAR(ticks[i], expected[i], 1e-9 * expected[i]);
        }
    }
    EXPECT_EQ(LogTicksIn({0.9, 11}, 3).subTicks.size(), 11U);
    const AxisRange wide = WithLogMargin({1, 100}, 0.25, 10);
    EXPECT_NEAR(wide.lower, std::sqrt(0.1), 1e-12);
    EXPECT_NEAR(WithLogMargin({1, 1}, 0.25, 100).upper, 10, 1e-12);
}

NoiseAnalysis AnalysisOf(const std::vector<double>& codes) {
    return AnalyseNoise(codes, MainConditions(2.5F, 0, Polarity::Bipolar));
}

TEST(PlotScale, AxesIncludeAllCodesAndTheCurve) {
    const auto expectRange = [](const AxisRange& range, double lower, double upper) {
        EXPECT_NEAR(range.lower, lower, 1e-6);
        EXPECT_NEAR(range.upper, upper, 1e-6);
    };
    const std::vector<double> spread{100, 120, 140, 120};
    const NoiseAnalysis wide = AnalysisOf(spread);
    const double reach = 3.3 * wide.normal.sigma;
    expectRange(CodeAxisOf(wide), 98, 142);
    expectRange(BinAxisOf(ComputeHistogram(spread, 100), wide.normal), 120 - 1.1 * reach,
                120 + 1.1 * reach);
    expectRange(CountAxisOf(ComputeHistogram(spread, 100), wide), 0, 2.1);
    // Two bins of 100 codes with two codes each, and of a normal curve 61 % around the mean: its
    // sigma is that of the codes, 100 / sqrt(3), without the 1/12 of rounding.
    const std::vector<double> halves{0, 0, 100, 100};
    expectRange(CountAxisOf(ComputeHistogram(halves, 2), AnalysisOf(halves)), 0,
                1.05 * 4 * std::erf(50 / std::sqrt(2 * (1e4 / 3 - 1.0 / 12))));

    const std::vector<double> equal{7, 7, 7};
    const NoiseAnalysis still = AnalysisOf(equal);
    expectRange(CodeAxisOf(still), 2, 12);
    expectRange(BinAxisOf(ComputeHistogram(equal, 100), still.normal), 2, 12);
    expectRange(CountAxisOf(ComputeHistogram(equal, 100), still), 0, 3.15);

    // Two codes are within one sigma of their mean.
    const NoiseAnalysis two = AnalysisOf({0, 100});
    expectRange(CodeAxisOf(two), 50 - 1.1 * two.exact.sigma, 50 + 1.1 * two.exact.sigma);
}

}  // namespace
}  // namespace vx3260
