// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LinuxSystem.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vx3260 {
namespace {

TEST(LinuxSystem, LeavesTheProgramsOwnPathOutOfTheCommandLine) {
    const char* const arguments[] = {"/opt/ssd/vx3260-eval", "--simulated", "x/Ss"};
    EXPECT_EQ(LinuxSystem(3, arguments).CommandLine(), "--simulated x/Ss");
    EXPECT_EQ(LinuxSystem(1, arguments).CommandLine(), "");
}

TEST(LinuxSystem, TellsWhetherAProgramStarted) {
    LinuxSystem system(0, nullptr);
    EXPECT_TRUE(system.StartProgram({"/bin/true"}));
    EXPECT_FALSE(system.StartProgram({"/bin/there-is-no-such-program"}));
    EXPECT_FALSE(system.StartProgram({"/bin"}));
    setenv("PATH", "/nowhere", 1);
    EXPECT_TRUE(system.DesktopSystemInformation().empty());
}

}  // namespace
}  // namespace vx3260
