// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "files/CodeFile.h"
#include "files/RecordingFile.h"
#include "support/Errors.h"
#include "support/Folder.h"

/// Links, pipes, devices, users and full disks.
namespace vx3260::test {
namespace {

using Codes = std::vector<std::int32_t>;

TEST(LinuxFiles, LinksAndPipesStay) {
    const Folder folder;
    folder.Make("old.dat", "a longer content than the new one");
    std::filesystem::create_symlink("old.dat", folder.Path("link.dat"));
    CodeWriter(folder.Path("link.dat")).Write(FormatCodes(Codes{7}, Notation::Decimal));
    EXPECT_EQ(folder.Bytes("old.dat"), " 7\n");
    ReplaceFile(folder.Path("link.dat"), " 6\n");
    EXPECT_EQ(folder.Bytes("old.dat"), " 6\n");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.dat")));

    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    std::fstream pipe(folder.Path("pipe"));  // both ends, so that no opening waits for the other
    CodeWriter(folder.Path("pipe")).Write(FormatCodes(Codes{8}, Notation::Decimal));
    std::string line;
    std::getline(pipe, line);
    EXPECT_EQ(line, " 8");
}

TEST(LinuxFiles, OpenFileUnderAnySpellingIsAppendedTo) {
    const Folder folder;
    std::FILE* const open = std::fopen(folder.Make("old.dat", "").c_str(), "a");
    const std::string number = std::to_string(fileno(open));
    std::filesystem::create_symlink("/dev/fd", folder.Path("folder"));
    std::filesystem::create_symlink("folder/" + number, folder.Path("link"));
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path("/dev");
    std::string expected;
    for (const std::string& path :
         {"/dev/fd/" + number, "//dev/fd/" + number, "/dev/./fd/" + number, "fd/" + number,
          folder.Path("folder/" + number), folder.Path("link")}) {
        CodeWriter(path).Write(FormatCodes(Codes{9}, Notation::Decimal));
        EXPECT_EQ(folder.Bytes("old.dat"), expected += " 9\n") << path;
    }
    std::filesystem::current_path(before);
    std::fclose(open);
}

TEST(LinuxFiles, FullOrEndlessDeviceIsReported) {
    CodeWriter device("/dev/full");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { device.Write("1\n"); }),
              "cannot write /dev/full: No space left on device");
    EXPECT_EQ(ErrorOf<FileAccessError>([] { ReplaceFile("/dev/full", "1"); }),
              "/dev/full is a pipe, a device or the name of an open file, not a regular file");
    EXPECT_EQ(ErrorOf<BadDataError>([] { LoadCodes("/dev/zero", {}); }),
              "/dev/zero: more than 4194304 bytes; a data file has at most 32767 lines of one code "
              "each");
}

/// The kernel's messages: with the right to read them, a reader waits for the next one.
TEST(LinuxFiles, RegularFilesAreNotWaitedFor) {
    EXPECT_TRUE(ErrorOf<FileAccessError>([] {
                    LoadBytes("/proc/kmsg", {std::size_t{1} << 30U, ""});
                }).starts_with("cannot read /proc/kmsg: "));
}

/// Prints the error of an action and ends the forked process.
[[noreturn]] void EndWithErrorOf(const std::function<void()>& action) {
    std::fputs(ErrorOf<FileAccessError>(action).c_str(), stderr);
    std::_Exit(EXIT_SUCCESS);
}

[[noreturn]] void TryAsNobody(const std::function<void()>& action) {
    constexpr uid_t nobody = 65534;
    if (setgid(nobody) != 0 || setuid(nobody) != 0) {
        std::_Exit(EXIT_FAILURE);
    }
    EndWithErrorOf(action);
}

TEST(LinuxFiles, ForbiddenFilesAreReported) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become somebody else";
    }
    const Folder folder;
    std::filesystem::permissions(folder.Path("."), std::filesystem::perms{0755});
    const std::string old = folder.Make("old.dat", "old");
    std::filesystem::permissions(old, std::filesystem::perms{0600});
    const auto ended = testing::ExitedWithCode(EXIT_SUCCESS);
    for (const std::string& path : {old, folder.Path("new.dat")}) {
        EXPECT_EXIT(TryAsNobody([&] { CodeWriter{path}; }), ended,
                    "^cannot write .*dat: .*(ermission denied|not writable)");
    }
    EXPECT_EXIT(TryAsNobody([&] { LoadCodes(old, Notation::Decimal); }), ended,
                "^cannot read .*dat: Permission denied");
    EXPECT_EQ(folder.Bytes("old.dat"), "old");
}

/// A file that may not grow fails in the middle of a write, as on a full disk.
[[noreturn]] void TryOnFullDisk(const std::function<void()>& action) {
    const rlimit limit{100, 100};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    EndWithErrorOf(action);
}

TEST(LinuxFiles, FullDiskLeavesWholeLinesOfARecording) {
    const Folder folder;
    const std::string path = folder.Path("record.csv");
    EXPECT_EXIT(TryOnFullDisk([&] {
                    RecordingFile file({path});
                    file.Begin({"VX"}, "a,b", "");
                    for (int i = 0; i < 30; ++i) {
                        file.Line("123456");
                        file.Comment("note");
                    }
                }),
                testing::ExitedWithCode(EXIT_SUCCESS),
                "^cannot write .*record.csv: .*; the lines before are in the file");
    const std::string bytes = folder.Bytes("record.csv");
    EXPECT_TRUE(bytes.starts_with("a,b\n# VX\n123456\n# note\n"));
    EXPECT_EQ(bytes.back(), '\n');
    EXPECT_GT(bytes.size(), 85U);
}

TEST(LinuxFiles, FullDiskLeavesTheOldFile) {
    const Folder folder;
    const std::string path = folder.Make("old.dat", "old");
    EXPECT_EXIT(TryOnFullDisk([&] {
                    CodeWriter(path).Write(FormatCodes(Codes(5000, 7), Notation::Decimal));
                }),
                testing::ExitedWithCode(EXIT_SUCCESS), "^cannot write .*old.dat: ");
    EXPECT_EQ(folder.Bytes("old.dat"), "old");
    const std::filesystem::directory_iterator files(folder.Path(""));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "a temporary file was left";
}

}  // namespace
}  // namespace vx3260::test
