// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LinuxSystem.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace vx3260 {
namespace {

TEST(LinuxSystem, LeavesTheProgramsOwnPathOutOfTheCommandLine) {
    const char* const arguments[] = {"/opt/ssd/vx3260-eval", "--simulated", "x/Ss"};
    EXPECT_EQ(LinuxSystem(3, arguments).CommandLine(), "--simulated x/Ss");
    EXPECT_EQ(LinuxSystem(1, arguments).CommandLine(), "");
}

TEST(LinuxSystem, ReportsWhetherAProgramStarted) {
    LinuxSystem system(0, nullptr);
    EXPECT_TRUE(system.StartProgram({"/bin/true"}));
    EXPECT_FALSE(system.StartProgram({"/bin/there-is-no-such-program"}));
    EXPECT_FALSE(system.StartProgram({"/bin"}));
}

TEST(LinuxSystem, FindsProgramsInAbsoluteFoldersOfPathOnly) {
    namespace fs = std::filesystem;
    LinuxSystem system(0, nullptr);
    const fs::path before = fs::current_path();
    const fs::path folder = testing::TempDir() + "programs-" + std::to_string(getpid());
    fs::create_directory(folder);
    fs::create_symlink("/bin/true", folder / "hardinfo");
    fs::current_path(folder);
    setenv("PATH", ("/nowhere:.::../" + folder.filename().string()).c_str(), 1);
    EXPECT_TRUE(system.DesktopSystemInformation().empty());
    setenv("PATH", ("/nowhere:" + folder.string()).c_str(), 1);
    EXPECT_EQ(system.DesktopSystemInformation(), std::vector<std::string>{folder / "hardinfo"});
    fs::current_path(before);
    fs::remove_all(folder);
}

}  // namespace
}  // namespace vx3260
