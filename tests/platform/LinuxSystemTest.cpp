// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LinuxSystem.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
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

/// Ends the process, a forked one, with whether a program starts for a user who may have this many
/// processes, this one included. Limits do not hold for the superuser.
[[noreturn]] void StartAmong(rlim_t processes) {
    constexpr uid_t userWithoutProcesses = 61234;
    const rlimit limit{processes, processes};
    if (setrlimit(RLIMIT_NPROC, &limit) != 0 || setuid(userWithoutProcesses) != 0) {
        std::_Exit(2);
    }
    std::_Exit(LinuxSystem(0, nullptr).StartProgram({"/bin/true"}) ? 0 : 1);
}

TEST(LinuxSystem, TooManyProcessesAreAProgramThatDidNotStart) {
    if (getuid() != 0) {
        GTEST_SKIP() << "only the superuser can become a user without processes";
    }
    EXPECT_EXIT(StartAmong(1), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(StartAmong(2), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(StartAmong(3), testing::ExitedWithCode(0), "");
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
