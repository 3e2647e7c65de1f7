// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/BlockReading.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "cli/board/ProgressLine.h"
#include "cli/board/StopSignal.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

TEST(BlockReading, OnlyTheModeFieldIsChanged) {
    SimulatedBench bench;
    std::ostringstream err;
    bench.Chip().Preset(modeAt, 0x33);
    EnsureContinuousConversion(*bench.services, err);
    EXPECT_EQ(bench.Chip().Contents(modeAt), 0x33U);
    EXPECT_EQ(err.str(), "");
    bench.Chip().Preset(modeAt, 0x26);
    EnsureContinuousConversion(*bench.services, err);
    EXPECT_EQ(bench.Chip().Contents(modeAt), 0x23U);
    EXPECT_EQ(err.str(),
              "The chip was not in Continuous Conversion Mode: mode register changed from 0x26 to "
              "0x23\n");
}

TEST(ProgressLine, LeavesNothingBehind) {
    std::ostringstream terminal;
    { ProgressLine(terminal, 3, true).Show(1); }
    const std::string drawn = "[##########....................] 1 of 3";
    EXPECT_EQ(terminal.str(), "\r" + drawn + "\r" + std::string(drawn.size(), ' ') + "\r");
}

TEST(StopSignal, TheFirstAsksAndTheSecondKills) {
    EXPECT_DEATH(
        {
            const StopSignal stop;
            std::raise(SIGINT);
            std::fputs(stop.Requested() ? "asked" : "not asked", stderr);
            std::raise(SIGINT);
        },
        "^asked");
}

}  // namespace
}  // namespace vx3260::test
