// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "cli/board/ProgressLine.h"
#include "cli/board/StopSignal.h"

namespace vx3260::test {
namespace {

TEST(ProgressLine, ErasesItself) {
    std::ostringstream terminal;
    { ProgressLine(terminal, 3, true).Show(1); }
    const std::string drawn = "[##########....................] 1 of 3";
    EXPECT_EQ(terminal.str(), "\r" + drawn + "\r" + std::string(drawn.size(), ' ') + "\r");
}

TEST(StopSignal, FirstAsksAndSecondKills) {
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
