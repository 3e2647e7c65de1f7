// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Histogram.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace vx3260
