#include "files/CodeFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "support/Folder.h"

namespace vx3260::test {
namespace {

using Codes = std::vector<std::int32_t>;

template <typename Error>
std::string ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "no such error";
}

TEST(CodeFile, SavesAndLoadsUnderAnyName) {
    const Folder folder;
    const std::string name = "Messung ä 測定.dat";
    CodeWriter writer(folder.Path(name));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path("."))) << "trying the place out left a file";
    writer.Write(Codes{1, -1}, Notation::Hexadecimal);
    EXPECT_EQ(folder.Bytes(name), "1\nFFFFFFFF\n");
    EXPECT_EQ(LoadCodes(folder.Path(name), Notation::Hexadecimal), (Codes{1, -1}));
}

TEST(CodeFile, ReplacesOnlyWhatIsAFile) {
    const Folder folder;
    folder.Make("old.dat", "a longer content than the new one");
    std::filesystem::create_symlink("old.dat", folder.Path("link.dat"));
    CodeWriter(folder.Path("link.dat")).Write(Codes{7}, Notation::Decimal);
    EXPECT_EQ(folder.Bytes("old.dat"), " 7\n");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.dat")));

    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    std::fstream pipe(folder.Path("pipe"));  // both ends, so that no opening waits for the other
    CodeWriter(folder.Path("pipe")).Write(Codes{8}, Notation::Decimal);
    std::string line;
    std::getline(pipe, line);
    EXPECT_EQ(line, " 8");
    EXPECT_TRUE(std::filesystem::is_fifo(folder.Path("pipe")));

    ReplaceFile(folder.Path("link.dat"), std::string("\0\xFF", 2));
    EXPECT_EQ(folder.Bytes("old.dat"), std::string("\0\xFF", 2));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.dat")));
    ReplaceFile(folder.Path("link.dat"), " 7\n");

    std::FILE* const open = std::fopen(folder.Path("old.dat").c_str(), "a");
    CodeWriter("/dev/fd/" + std::to_string(fileno(open))).Write(Codes{9}, Notation::Decimal);
    std::fclose(open);
    EXPECT_EQ(folder.Bytes("old.dat"), " 7\n 9\n");
}

TEST(CodeFile, StandardOutputHasThreeNames) {
    for (const std::string target : {"", "-", "/dev/stdout"}) {
        std::ostringstream out;
        CodeWriter(target, out).Write(Codes{8388608}, Notation::Decimal);
        EXPECT_EQ(out.str(), " 8388608\n") << target;
    }
    std::ofstream full("/dev/full");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter("-", full).Write(Codes{1}, {}); }),
              "cannot write standard output: No space left on device");
}

TEST(CodeFile, UnwritablePlacesAreToldWithTheirReason) {
    const Folder folder;
    const std::string gone = folder.Path("no folder/x.dat");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter{gone}; }),
              "cannot write " + gone + ": No such file or directory");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter{folder.Path(".")}; }),
              "cannot write " + folder.Path(".") + ": Filename refers to a directory");
    EXPECT_EQ(ErrorOf<FileAccessError>([] { ReplaceFile("/dev/full", "1"); }),
              "/dev/full is a pipe, a device or an open file, no file of its own");
    CodeWriter full("/dev/full");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { full.Write(Codes{1}, Notation::Decimal); }),
              "cannot write /dev/full: No space left on device");
}

/// Prints the error of an action and ends the process, a forked one.
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

TEST(CodeFile, WhatIsForbiddenIsTold) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become somebody else";
    }
    const Folder folder;
    std::filesystem::permissions(folder.Path("."), std::filesystem::perms{0755});
    const std::string old = folder.Make("old.dat", "old");
    std::filesystem::permissions(old, std::filesystem::perms{0600});
    for (const std::string& path : {old, folder.Path("new.dat")}) {
        EXPECT_EXIT(TryAsNobody([&] { CodeWriter{path}; }), testing::ExitedWithCode(EXIT_SUCCESS),
                    "^cannot write .*dat: .*(ermission denied|not writable)");
    }
    EXPECT_EXIT(TryAsNobody([&] { LoadCodes(old, Notation::Decimal); }),
                testing::ExitedWithCode(EXIT_SUCCESS), "^cannot read .*dat: Permission denied");
    EXPECT_EQ(folder.Bytes("old.dat"), "old");
}

/// A file that may not grow fails in the middle of a write, as on a full disk.
[[noreturn]] void TryOnFullDisk(const std::function<void()>& action) {
    const rlimit limit{100, 100};
    std::signal(SIGXFSZ, SIG_IGN);
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
        std::_Exit(EXIT_FAILURE);
    }
    EndWithErrorOf(action);
}

TEST(CodeFile, AFullDiskLeavesTheOldFile) {
    const Folder folder;
    const std::string path = folder.Make("old.dat", "old");
    EXPECT_EXIT(TryOnFullDisk([&] { CodeWriter(path).Write(Codes(5000, 7), Notation::Decimal); }),
                testing::ExitedWithCode(EXIT_SUCCESS), "^cannot write .*old.dat: ");
    EXPECT_EQ(folder.Bytes("old.dat"), "old");
    const std::filesystem::directory_iterator files(folder.Path(""));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "a temporary file was left";
}

TEST(CodeFile, WhatCannotBeReadIsNoBadData) {
    const Folder folder;
    const auto load = [](const std::string& path) {
        return [path] { LoadCodes(path, Notation::Decimal); };
    };
    EXPECT_EQ(ErrorOf<FileAccessError>(load(folder.Path("none"))),
              "cannot read " + folder.Path("none") + ": No such file or directory");
    EXPECT_EQ(ErrorOf<FileAccessError>(load(folder.Path(""))),
              "cannot read " + folder.Path("") + ": Is a directory");
    EXPECT_EQ(ErrorOf<BadDataError>(load(folder.Make("bad", "1\nx\n"))),
              folder.Path("bad") + ": line 2: \"x\" is no decimal code");
    const std::string size =
        ": more than 4194304 bytes; a data file has at most 32767 lines of "
        "one code each";
    EXPECT_EQ(ErrorOf<BadDataError>(load("/dev/zero")), "/dev/zero" + size) << "endless";
    std::filesystem::resize_file(folder.Make("large", "1\n"), 100'000'000);
    EXPECT_EQ(ErrorOf<BadDataError>(load(folder.Path("large"))), folder.Path("large") + size);
}

}  // namespace
}  // namespace vx3260::test
