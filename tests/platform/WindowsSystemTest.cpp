// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/WindowsSystem.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "numbers/WideText.h"

namespace vx3260 {
namespace {

constexpr const char* testKey = "Software\\VX3260 Test";

/// As the system's 8-bit functions have it.
std::string InCodePage(const std::wstring& text) {
    std::string bytes(8, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

class WindowsSystemTest : public testing::Test {
  protected:
    std::optional<std::string> Stored(DWORD type, const std::string& bytes) {
        HKEY key = nullptr;
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, testKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr);
        RegSetValueExA(key, "value", 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size()));
        RegCloseKey(key);
        const auto stored = system.GetKeyValue(testKey, "value");
        RegDeleteKeyA(HKEY_LOCAL_MACHINE, testKey);
        return stored;
    }

    WindowsSystem system{0, nullptr};
};

TEST_F(WindowsSystemTest, ReadsVersionAndRegistry) {
    using namespace std::string_literals;
    EXPECT_EQ(system.QueryVersion().platform, 2);
    EXPECT_GE(system.QueryVersion().major, 5);
    EXPECT_EQ(Stored(REG_SZ, "C:\\Msinfo32.exe\0"s), "C:\\Msinfo32.exe");
    EXPECT_EQ(Stored(REG_SZ, "not terminated"), "not terminated");
    EXPECT_EQ(Stored(REG_SZ, "D:\\" + InCodePage(L"é")), "D:\\é");
    EXPECT_EQ(Stored(REG_DWORD, "\xEF\xBE\xAD\xDE"), "&hDEADBEEF");
    EXPECT_EQ(Stored(REG_SZ, std::string(5000, 'x')), std::nullopt) << "longer than the buffer";
    EXPECT_EQ(Stored(REG_BINARY, "abc"), std::nullopt);
    EXPECT_EQ(system.GetKeyValue("Software\\There is no such key", "value"), std::nullopt);
}

TEST_F(WindowsSystemTest, RemovesTheProgramFromTheCommandLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"vx3260-eval /ss", "/ss"},
        {"vx3260-eval\t/SS", "/SS"},
        {"\"C:\\my programs\\eval.exe\" --trace \"a b\"", "--trace \"a b\""},
        {"vx3260-eval", ""},
    };
    for (const auto& [line, arguments] : cases) {
        EXPECT_EQ(WindowsSystem::WithoutProgram(line), arguments);
    }
}

TEST_F(WindowsSystemTest, FindsFilesAndStartsPrograms) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / L"vx3260 ä 測";
    const fs::path file = folder / "started.txt";
    fs::remove_all(folder);
    fs::create_directory(folder);
    EXPECT_FALSE(system.FileExists(ToUtf8(folder.wstring())));
    EXPECT_FALSE(system.FileExists(ToUtf8(file.wstring())));
    EXPECT_FALSE(system.StartProgram({"C:\\there is no such program.exe"}));
    // Copies itself: the program goes on without waiting for what it started.
    const std::string copy = "C:\\windows\\system32\\xcopy.exe";
    EXPECT_TRUE(system.StartProgram({copy, "/y", "/q", copy, ToUtf8(folder.wstring())}));
    const auto copied = ToUtf8((folder / "xcopy.exe").wstring());
    for (int tries = 0; tries < 200 && !system.FileExists(copied); ++tries) {
        Sleep(50);
    }
    EXPECT_TRUE(system.FileExists(copied));
    fs::remove_all(folder);
}

}  // namespace
}  // namespace vx3260
