// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Stability.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vx3260 {
namespace {

using Factors = std::vector<std::size_t>;

Factors FactorsOf(std::size_t codes, AveragingFactors factors) {
    Factors result;
    for (const AllanPoint& point : AllanDeviation(std::vector<double>(codes), factors)) {
        result.push_back(point.factor);
    }
    return result;
}

/// The 1000-point test suite of NIST SP 1065, and its figures.
TEST(Stability, EqualsPublishedFigures) {
    constexpr std::int64_t modulus = 2147483647;
    std::vector<double> codes;
    for (std::int64_t n = 1234567890; codes.size() < 1000; n = 16807 * n % modulus) {
        codes.push_back(static_cast<double>(n) / modulus);
    }
    const std::vector<AllanPoint> points = AllanDeviation(codes, AveragingFactors::Decade);
    const std::pair<std::size_t, double> cases[] = {
        {1, 2.922319e-01}, {10, 9.159953e-02}, {100, 3.241343e-02}};
    for (const auto& [factor, deviation] : cases) {
        const auto point =
            std::find_if(points.begin(), points.end(),
                         [m = factor](const AllanPoint& p) { return p.factor == m; });
        ASSERT_NE(point, points.end());
        EXPECT_NEAR(point->deviation, deviation, 5e-7 * deviation);
        EXPECT_LT(point->low, point->deviation);
        EXPECT_GT(point->high, point->deviation);
    }
    // 666 degrees of freedom: the limits of a variance are nearly 1.96 sqrt(2 / 666) off.
    EXPECT_NEAR(points[0].low / points[0].deviation, 0.9491, 1e-3);
    EXPECT_NEAR(points[0].high / points[0].deviation, 1.0567, 1e-3);
    EXPECT_NEAR(WhiteNoiseDeviation(points, 100), 2.922319e-02, 1e-8);
}

TEST(Stability, ChoosesTheFactors) {
    EXPECT_EQ(FactorsOf(19, AveragingFactors::Octave), (Factors{1, 2, 4, 8}));
    EXPECT_EQ(FactorsOf(800, AveragingFactors::Decade),
              (Factors{1, 2, 4, 10, 20, 40, 100, 200, 400}));
    EXPECT_EQ(FactorsOf(7, AveragingFactors::All), (Factors{1, 2, 3}));
    EXPECT_EQ(FactorsOf(1, AveragingFactors::All), Factors{});
}

TEST(Stability, IsExactAndDefinedForEveryBlock) {
    const std::vector<double> ramp{16000000, 16000001, 16000002, 16000003};
    const double sqrtHalf = std::sqrt(0.5);
    EXPECT_EQ(AllanDeviation(ramp, AveragingFactors::All)[0].deviation, sqrtHalf);
    EXPECT_EQ(AllanDeviation(ramp, AveragingFactors::All)[1].deviation, 2 * sqrtHalf);
    const std::vector<double> steps{16000000, 16000001, 16000003};  // the mean is rounded
    EXPECT_DOUBLE_EQ(AllanDeviation(steps, AveragingFactors::All)[0].deviation, std::sqrt(1.25));
    const std::vector<double> ends{-2147483648.0, 2147483647.0};
    const std::vector<AllanPoint> extreme = AllanDeviation(ends, AveragingFactors::Octave);
    EXPECT_DOUBLE_EQ(extreme.at(0).deviation, 4294967295 * sqrtHalf);
    EXPECT_TRUE(std::isfinite(extreme[0].high));
    const AllanPoint constant =
        AllanDeviation(std::vector<double>(10, 2147483647.0), AveragingFactors::Octave).back();
    EXPECT_EQ(constant.deviation + constant.high, 0);
}

}  // namespace
}  // namespace vx3260
