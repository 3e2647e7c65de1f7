#include "platform/WindowsSystem.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/WideText.h"

namespace vx3260 {
namespace {

constexpr const char* testKey = "Software\\VX3260 Test";

/// A key of the machine's registry with one value, gone with the test.
class TestValue {
  public:
    TestValue(DWORD type, const std::string& bytes) {
        HKEY key = nullptr;
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, testKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr);
        RegSetValueExA(key, "value", 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size()));
        RegCloseKey(key);
    }
    ~TestValue() { RegDeleteKeyA(HKEY_LOCAL_MACHINE, testKey); }
    TestValue(const TestValue&) = delete;
    TestValue(TestValue&&) = delete;
    TestValue& operator=(const TestValue&) = delete;
    TestValue& operator=(TestValue&&) = delete;
};

class WindowsSystemTest : public testing::Test {
  protected:
    std::optional<std::string> Stored(DWORD type, const std::string& bytes) {
        const TestValue value(type, bytes);
        return system.GetKeyValue(testKey, "value");
    }

    WindowsSystem system{0, nullptr};
};

TEST_F(WindowsSystemTest, TellsItsVersion) {
    EXPECT_EQ(system.QueryVersion().platform, 2);
    EXPECT_GE(system.QueryVersion().major, 5);
}

TEST_F(WindowsSystemTest, ReadsTheRegistry) {
    using namespace std::string_literals;
    EXPECT_EQ(Stored(REG_SZ, "C:\\Msinfo32.exe\0"s), "C:\\Msinfo32.exe");
    EXPECT_EQ(Stored(REG_SZ, "not terminated"), "not terminated");
    EXPECT_EQ(Stored(REG_DWORD, "\xEF\xBE\xAD\xDE"), "&hDEADBEEF");
    EXPECT_EQ(Stored(REG_SZ, std::string(5000, 'x')), std::nullopt) << "longer than the buffer";
    EXPECT_EQ(Stored(REG_BINARY, "abc"), std::nullopt);
    EXPECT_EQ(system.GetKeyValue("Software\\There is no such key", "value"), std::nullopt);
}

TEST_F(WindowsSystemTest, FindsFilesAndStartsPrograms) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / L"vx3260 ä \u6E2C.txt";
    std::ofstream(file) << "x";
    EXPECT_TRUE(system.FileExists(ToUtf8(file.wstring())));
    std::filesystem::remove(file);
    EXPECT_FALSE(system.FileExists(ToUtf8(file.wstring())));
    EXPECT_FALSE(system.StartProgram({"C:\\there is no such program.exe"}));
    EXPECT_TRUE(system.StartProgram({"C:\\windows\\system32\\regsvr32.exe", "/s"}));
}

}  // namespace
}  // namespace vx3260
