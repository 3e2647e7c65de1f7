// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/CodeFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "numbers/FilePath.h"
#include "support/Errors.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

using Codes = std::vector<std::int32_t>;

TEST(CodeFile, SavesAndLoadsUnderAnyName) {
    const Folder folder;
    const std::string name = "Messung ä 測定.dat";
    CodeWriter writer(folder.Path(name));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path(".")))
        << "the check of the place left a file";
    writer.Write(FormatCodes(Codes{1, -1}, Notation::Hexadecimal));
    EXPECT_EQ(folder.Bytes(name), "1\nFFFFFFFF\n");
    EXPECT_EQ(LoadCodes(folder.Path(name), Notation::Hexadecimal).codes, (Codes{1, -1}));
    ReplaceFile(folder.Path(name), std::string("\0\r\n\xFF\x1A", 5));
    EXPECT_EQ(folder.Bytes(name), std::string("\0\r\n\xFF\x1A", 5));
    folder.Make(name, "8388608\r\n12\r\n");
    EXPECT_EQ(LoadCodes(folder.Path(name), Notation::Decimal).codes, (Codes{8388608, 12}));
}

TEST(CodeFile, BlockIsKeptWhereItsPlaceIsTaken) {
    const Folder folder;
    CodeWriter writer(folder.Path("x.dat"));
    std::filesystem::create_directory(FilePath(folder.Path("x.dat")));
    const std::string error =
        ErrorOf<FileAccessError>([&] { writer.Write(FormatCodes(Codes{5}, Notation::Decimal)); });
    const std::size_t name = error.find("; the codes were kept in ");
    ASSERT_NE(name, std::string::npos) << error;
    EXPECT_EQ(LoadCodes(error.substr(name + 25), Notation::Decimal).codes, Codes{5});
}

TEST(CodeFile, StandardOutputHasThreeNames) {
    for (const std::string target : {"", "-", "/dev/stdout"}) {
        std::ostringstream out;
        CodeWriter(target, out).Write(FormatCodes(Codes{8388608}, Notation::Decimal));
        EXPECT_EQ(out.str(), " 8388608\n") << target;
    }
}

TEST(CodeFile, FailuresNameThePlaceAndTheReason) {
    const Folder folder;
    const std::string gone = folder.Path("no folder/x.dat");
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter{gone}; }),
              "cannot write " + gone + ": " + Folder::ReasonOfNoFile(gone));
    EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter{folder.Path(".")}; }),
              "cannot write " + folder.Path(".") + ": Filename refers to a directory");
    const auto load = [](const std::string& path) {
        return [path] { LoadCodes(path, Notation::Decimal); };
    };
    const std::string none = folder.Path("none");
    EXPECT_EQ(ErrorOf<FileAccessError>(load(none)),
              "cannot read " + none + ": " + Folder::ReasonOfNoFile(none));
    EXPECT_EQ(ErrorOf<FileAccessError>(load(folder.Path(""))),
              "cannot read " + folder.Path("") + ": Is a directory");
    EXPECT_EQ(ErrorOf<BadDataError>(load(folder.Make("bad", "1\nx\n"))),
              folder.Path("bad") + ": line 2: \"x\" is not a decimal code");
    std::filesystem::resize_file(folder.Make("large", "1\n"), 100'000'000);
    EXPECT_TRUE(ErrorOf<BadDataError>(load(folder.Path("large")))
                    .starts_with(folder.Path("large") + ": more than 4194304 bytes; "));
}

}  // namespace
}  // namespace vx3260::test
