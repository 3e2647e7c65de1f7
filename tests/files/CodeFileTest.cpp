#include "files/CodeFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace vx3260 {
namespace {

using Codes = std::vector<std::int32_t>;

class CodeFile : public testing::Test {
  protected:
    std::string Path(const std::string& name) const {
        return folder_.filePath(QString::fromStdString(name)).toStdString();
    }

    std::string Bytes(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string Make(const std::string& name, const std::string& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }

    std::ptrdiff_t FilesInFolder() const {
        return std::distance(std::filesystem::directory_iterator(folder_.path().toStdString()), {});
    }

  private:
    QTemporaryDir folder_;
};

template <typename Error>
std::string ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "no such error";
}

TEST_F(CodeFile, SavesAndLoadsUnderAnyName) {
    const std::string name = "Messung ä 測定.dat";
    CodeWriter writer(Path(name));
    EXPECT_EQ(FilesInFolder(), 0) << "trying the place out left a file";
    writer.Write(Codes{1, -1}, Notation::Hexadecimal);
    EXPECT_EQ(Bytes(name), "1\nFFFFFFFF\n");
    EXPECT_EQ(LoadCodes(Path(name), Notation::Hexadecimal), (Codes{1, -1}));
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(CodeFile, ReplacesOnlyWhatIsAFile) {
    Make("old.dat", "a longer content than the new one");
    std::filesystem::create_symlink("old.dat", Path("link.dat"));
    CodeWriter(Path("link.dat")).Write(Codes{7}, Notation::Decimal);
    EXPECT_EQ(Bytes("old.dat"), " 7\n");
    EXPECT_TRUE(std::filesystem::is_symlink(Path("link.dat")));

    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    std::fstream pipe(Path("pipe"));  // both ends, so that no opening waits for the other
    CodeWriter(Path("pipe")).Write(Codes{8}, Notation::Decimal);
    std::string line;
    std::getline(pipe, line);
    EXPECT_EQ(line, " 8");
    EXPECT_TRUE(std::filesystem::is_fifo(Path("pipe")));

    std::FILE* const open = std::fopen(Path("old.dat").c_str(), "a");
    CodeWriter("/dev/fd/" + std::to_string(fileno(open))).Write(Codes{9}, Notation::Decimal);
    std::fclose(open);
    EXPECT_EQ(Bytes("old.dat"), " 7\n 9\n");
}

TEST_F(CodeFile, StandardOutputHasThreeNames) {
    for (const std::string target : {"", "-", "/dev/stdout"}) {
        std::ostringstream out;
        CodeWriter(target, out).Write(Codes{8388608}, Notation::Decimal);
        EXPECT_EQ(out.str(), " 8388608\n") << target;
    }
    std::ofstream full("/dev/full");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter("-", full).Write(Codes{1}, {}); }),
              "cannot write standard output: No space left on device");
}

TEST_F(CodeFile, UnwritablePlacesAreToldWithTheirReason) {
    const std::string gone = Path("no folder/x.dat");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter{gone}; }),
              "cannot write " + gone + ": No such file or directory");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter{Path(".")}; }),
              "cannot write " + Path(".") + ": Filename refers to a directory");
    CodeWriter full("/dev/full");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { full.Write(Codes{1}, Notation::Decimal); }),
              "cannot write /dev/full: No space left on device");
}

TEST_F(CodeFile, WhatCannotBeReadIsNoBadData) {
    const auto load = [](const std::string& path) {
        return [path] { LoadCodes(path, Notation::Decimal); };
    };
    EXPECT_EQ(ErrorOf<FileAccessError>(load(Path("none"))),
              "cannot read " + Path("none") + ": No such file or directory");
    EXPECT_EQ(ErrorOf<FileAccessError>(load(Path(""))),
              "cannot read " + Path("") + ": Is a directory");
    EXPECT_EQ(ErrorOf<BadDataError>(load(Make("bad", "1\nx\n"))),
              Path("bad") + ": line 2: \"x\" is no decimal code");
    const std::string size =
        ": more than 4194304 bytes; a data file has at most 32767 lines of "
        "one code each";
    EXPECT_EQ(ErrorOf<BadDataError>(load("/dev/zero")), "/dev/zero" + size) << "endless";
    std::filesystem::resize_file(Make("large", "1\n"), 100'000'000);
    EXPECT_EQ(ErrorOf<BadDataError>(load(Path("large"))), Path("large") + size);
}

}  // namespace
}  // namespace vx3260
