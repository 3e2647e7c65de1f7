// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Histogram.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

using Counts = std::vector<std::size_t>;

TEST(Histogram, BinsCodesByWholeNumbers) {
    const std::tuple<std::vector<double>, std::size_t, std::int64_t, std::int64_t, Counts> cases[] =
        {
            {{5}, 2, 5, 1, {1}},
            {{7, 5, 7, 5, 5}, 3, 5, 1, {3, 0, 2}},         // the maximum number of bins
            {{7, 5, 8, 5, 5}, 3, 4, 2, {3, 1, 1}},         // 4 and 5, 6 and 7, 8 and 9
            {{0, 1, 2, 3, 4, 5, 10}, 3, 0, 5, {5, 1, 1}},  // never 3 or 4 wide
            {{-3, -1, 0, 2}, 4, -4, 2, {1, 1, 1, 1}},      // counted downwards below 0 too
            {{-2147483648.0, 2147483647.0}, 2, -5000000000, 5000000000, {1, 1}},
        };
    for (const auto& [codes, mostBins, firstCode, width, counts] : cases) {
        const Histogram histogram = ComputeHistogram(codes, mostBins);
        EXPECT_EQ(histogram.firstCode, firstCode) << codes[0];
        EXPECT_EQ(histogram.binWidth, width) << codes[0];
        EXPECT_EQ(histogram.counts, counts) << codes[0];
    }
    EXPECT_EQ((Histogram{10, 1, {}}).CentreOf(2), 12);
    EXPECT_EQ((Histogram{10, 2, {}}).CentreOf(0), 10.5);
    EXPECT_THROW(ComputeHistogram({}, 10), SubscriptError);
    EXPECT_THROW(ComputeHistogram(std::vector<double>{3e9}, 10), OverflowError);
}

TEST(Histogram, BinsGoBySteps) {
    const std::vector<double> codes{0x8000, 0x8100, 0x8100, 0x8500};
    EXPECT_EQ(BinWidthsFor(codes, 10, 256), (std::vector<std::int64_t>{256, 512, 1280}));
    const Histogram histogram = ComputeHistogram(codes, 4, 256);
    EXPECT_EQ(histogram.firstCode, 0x8000);
    EXPECT_EQ(histogram.counts, (Counts{3, 0, 1}));
    EXPECT_EQ(histogram.LastCodeOf(0), 0x8100);
    EXPECT_EQ(histogram.CentreOf(0), 0x8080);
}

double LogLikelihood(const std::vector<double>& codes, const NormalFit& fit, int step) {
    double sum = 0;
    for (const double code : codes) {
        sum += std::log(NormalCount(code, fit, 1, step));
    }
    return sum;
}

TEST(Histogram, FitIsTheMostLikelyNormalDistribution) {
    const std::pair<std::vector<double>, int> cases[] = {
        {{5, 5, 5, 5, 6, 5, 5, 4, 5, 6}, 1},
        {{5, 5, 5, 7}, 1},
        {{0x8100, 0x8100, 0x8000, 0x8100, 0x8200, 0x8200}, 256},
    };
    for (const auto& [codes, step] : cases) {
        const NormalFit fit = FitNormal(codes, ComputeExactStatistics(codes), step);
        const double best = LogLikelihood(codes, fit, step);
        for (const double change : {-1e-3, 1e-3}) {
            EXPECT_LT(LogLikelihood(codes, {fit.mean + change * step, fit.sigma}, step), best);
            EXPECT_LT(LogLikelihood(codes, {fit.mean, fit.sigma * (1 + change)}, step), best);
        }
    }
    // Two neighbours: half a reading is expected outside, and the rest as it was read.
    std::vector<double> codes(1000, 5);
    codes[3] = 6;
    const NormalFit fit = FitNormal(codes, ComputeExactStatistics(codes), 1);
    EXPECT_NEAR(NormalCount(5.5, fit, 1000, 2), 999.5, 1e-6);
    EXPECT_NEAR(NormalCount(6, fit, 1000, 1), 1, 0.5);
    // An outlier so far away that its share underflows.
    codes[3] = 35;
    const NormalFit far = FitNormal(codes, ComputeExactStatistics(codes), 1);
    EXPECT_GT(far.sigma, 0.5);
    EXPECT_LT(far.sigma, 2);
}

}  // namespace
}  // namespace vx3260
