// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>
#include <windows.h>
#undef ReplaceFile  // the system's own

#include <memory>

#include "files/CodeFile.h"
#include "numbers/FilePath.h"
#include "support/Errors.h"
#include "support/Folder.h"

/// What other programs and the owner of a file can forbid.
namespace vx3260::test {
namespace {

using Codes = std::vector<std::int32_t>;

using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

/// A file that another program has open and shares with nobody, or for reading only.
Handle OpenElsewhere(const std::string& path, DWORD shared) {
    return {CreateFileW(FilePath(path).c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING,
                        FILE_ATTRIBUTE_NORMAL, nullptr),
            CloseHandle};
}

TEST(WindowsFiles, FileInUseStaysAndTheCodesAreKept) {
    const Folder folder;
    const std::string path = folder.Make("ä 測.dat", " 1\n");
    CodeWriter writer(path);
    Handle open = OpenElsewhere(path, FILE_SHARE_READ);
    EXPECT_EQ(LoadCodes(path, Notation::Decimal).codes, Codes{1}) << "reading is shared";
    const std::string saving = ErrorOf<FileAccessError>([&] { ReplaceFile(path, " 2\n"); });
    EXPECT_TRUE(saving.starts_with("cannot write " + path + ": ")) << saving;
    const std::string error =
        ErrorOf<FileAccessError>([&] { writer.Write(FormatCodes(Codes{3}, Notation::Decimal)); });
    const std::size_t name = error.find("; the codes were kept in ");
    ASSERT_NE(name, std::string::npos) << error;
    EXPECT_EQ(LoadCodes(error.substr(name + 25), Notation::Decimal).codes, Codes{3});
    open.reset();
    EXPECT_EQ(folder.Bytes("ä 測.dat"), " 1\n");
    open = OpenElsewhere(path, 0);
    const std::string reading =
        ErrorOf<FileAccessError>([&] { LoadCodes(path, Notation::Decimal); });
    EXPECT_TRUE(reading.starts_with("cannot read " + path + ": ")) << reading;
}

TEST(WindowsFiles, StandardInputMayBeAPipe) {
    const std::string text = "registers\r\n\x1A" + std::string(70000, 'x');
    int ends[2];
    ASSERT_EQ(_pipe(ends, 1 << 17, _O_BINARY), 0);
    ASSERT_EQ(_write(ends[1], text.data(), static_cast<unsigned>(text.size())),
              static_cast<int>(text.size()));
    _close(ends[1]);
    ASSERT_EQ(_dup2(ends[0], 0), 0);
    _close(ends[0]);
    EXPECT_EQ(LoadStandardInput({100000, ""}), text);
}

TEST(WindowsFiles, DeviceNamesAreRefused) {
    for (const std::string name : {"aux.hex", "C:\\LPT1", "nul", "Con.tar.gz"}) {
        const std::string message = name + ": Windows keeps this name for a device; choose another";
        EXPECT_EQ(ErrorOf<FileAccessError>([&] { CodeWriter{name}; }), message);
        EXPECT_EQ(ErrorOf<FileAccessError>([&] { ReplaceFile(name, "1"); }), message);
    }
    const Folder folder;
    CodeWriter(folder.Path("aux codes.dat")).Write(FormatCodes(Codes{1}, Notation::Decimal));
    EXPECT_EQ(folder.Bytes("aux codes.dat"), " 1\n");
}

}  // namespace
}  // namespace vx3260::test
