// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/Reading.h"

#include <gtest/gtest.h>

#include "numbers/RuntimeError.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

class ReadingTest : public testing::Test {
  protected:
    ReadingEnd Read(std::int16_t size, const ReadingHooks& hooks = {}) {
        return ReadBlockFrom(*bench.port, bench.state, Converter::Main, size, hooks);
    }

    SimulatedBench bench;
};

TEST_F(ReadingTest, WaitsForANewResultEachTimeWhileBothConvertersRun) {
    const std::int64_t start = bench.board->Now();
    EXPECT_EQ(Read(20), ReadingEnd::Complete);
    EXPECT_EQ(bench.state.MainCodes.size(), 20U);
    EXPECT_EQ(bench.state.MainCodeCount, 20);
    EXPECT_NEAR(static_cast<double>(bench.board->Now() - start) / 1e6, 20 * 50.54, 51);
    EXPECT_THROW(Read(0), SubscriptError);
    EXPECT_THROW(Read(-3), SubscriptError);
    EXPECT_EQ(bench.state.MainCodeCount, 20) << "the old block";
}

TEST_F(ReadingTest, CountsTheCodeBeingRead) {
    std::vector<int> counts;
    const ReadingEnd end =
        Read(50, {.beforeEach = [&] { counts.push_back(bench.state.MainCodeCount); },
                  .stopRequested = [&] { return counts.size() == 3; }});
    EXPECT_EQ(end, ReadingEnd::Stopped);
    EXPECT_EQ(counts, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(bench.state.MainCodeCount, 3);
    EXPECT_EQ(bench.state.MainCodes.size(), 50U);
}

}  // namespace
}  // namespace vx3260::test
