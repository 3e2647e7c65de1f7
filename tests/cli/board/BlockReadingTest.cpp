// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "cli/board/ProgressLine.h"
#include "cli/board/StopSignal.h"

namespace vx3260::test {
namespace {

/// What a line shows after 30 s and after 31 s, and what erases it.
std::string DrawnIn(std::size_t width) {
    std::ostringstream terminal;
    std::chrono::seconds time{0};
    {
        ProgressLine line(terminal, 630, width,
                          [&time] { return std::chrono::steady_clock::time_point(time); });
        for (const int seconds : {30, 31}) {
            time = std::chrono::seconds(seconds);
            line.Show(seconds == 30 ? 30 : 32);
            line.Show(600);
        }
    }
    return terminal.str();
}

TEST(ProgressLine, LeavesNoRestAndFitsTheTerminal) {
    const std::string first = "\r[#.............................] 30 of 630, 10:00 left";
    const std::string second = "\r[#.............................] 32 of 630, 9:40 left ";
    EXPECT_EQ(DrawnIn(80), first + second + "\r" + std::string(55, ' ') + "\r");
    EXPECT_EQ(DrawnIn(34), "\r[.......] 30 of 630, 10:00 left\r[........] 32 of 630, 9:40 left\r" +
                               std::string(33, ' ') + "\r");
    EXPECT_EQ(DrawnIn(20),
              "\r30 of 630, 10:00 \r32 of 630, 9:40 l\r" + std::string(19, ' ') + "\r");
    EXPECT_EQ(DrawnIn(0), "");
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
