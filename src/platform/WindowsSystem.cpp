// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/WindowsSystem.h"

#include <windows.h>
// What parses a command line is declared in a header of its own, after the one above.
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "numbers/NumberText.h"
#include "numbers/WideText.h"

namespace vx3260 {
namespace {

/// Everything but to delete the key and to change who may use it. Windows refuses that to all but
/// administrators.
constexpr REGSAM keyAccess = 0x2003F;

/// A registry key that is closed in every case.
class OpenKey {
  public:
    explicit OpenKey(const std::string& key) {
        open_ =
            RegOpenKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, keyAccess, &key_) == ERROR_SUCCESS;
    }
    ~OpenKey() {
        if (open_) {
            RegCloseKey(key_);
        }
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey(OpenKey&&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    OpenKey& operator=(OpenKey&&) = delete;

    explicit operator bool() const { return open_; }
    HKEY Handle() const { return key_; }

  private:
    HKEY key_ = nullptr;
    bool open_ = false;
};

/// A string value need not end in a zero.
std::string UpToZero(const char* bytes, std::size_t size) {
    return {bytes, std::find(bytes, bytes + size, '\0')};
}

}  // namespace

WindowsSystem::WindowsSystem(int /*argumentCount*/, const char* const* /*arguments*/) {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        arguments_.push_back(ToUtf8(words[i]));
    }
    LocalFree(words);
}

SystemVersion WindowsSystem::QueryVersion() {
    OSVERSIONINFOA info{};
    static_assert(sizeof info == 148);
    info.dwOSVersionInfoSize = sizeof info;
    std::fill(std::begin(info.szCSDVersion), std::end(info.szCSDVersion), ' ');
    if (GetVersionExA(&info) == 0) {
        return {};
    }
    return {static_cast<std::int32_t>(info.dwPlatformId),
            static_cast<std::int32_t>(info.dwMajorVersion),
            static_cast<std::int32_t>(info.dwMinorVersion)};
}

std::string WindowsSystem::CommandLine() {
    return WithoutProgram(ToUtf8(GetCommandLineW()));
}

std::string WindowsSystem::WithoutProgram(const std::string& commandLine) {
    const std::size_t pathEnd = commandLine.starts_with('"') ? commandLine.find('"', 1) : 0;
    const std::size_t space = commandLine.find_first_of(" \t", pathEnd);
    return space == std::string::npos ? std::string() : commandLine.substr(space + 1);
}

std::optional<std::string> WindowsSystem::GetKeyValue(const std::string& key,
                                                      const std::string& name) {
    const OpenKey opened(key);
    if (!opened) {
        return std::nullopt;
    }
    std::array<char, 1024> bytes{};
    auto size = static_cast<DWORD>(bytes.size());
    DWORD type = 0;
    if (RegQueryValueExA(opened.Handle(), name.c_str(), nullptr, &type,
                         reinterpret_cast<BYTE*>(bytes.data()), &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    if (type == REG_SZ) {
        return CodePageToUtf8(UpToZero(bytes.data(), size));
    }
    if (type == REG_DWORD && size == sizeof(std::int32_t)) {
        std::int32_t number = 0;
        std::memcpy(&number, bytes.data(), sizeof number);
        return "&h" + HexText(number);
    }
    return std::nullopt;
}

bool WindowsSystem::FileExists(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(ToWide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// Through the shell, which asks the user for elevated rights if the program needs them.
bool WindowsSystem::StartProgram(const std::vector<std::string>& command) {
    std::string arguments;
    for (auto word = command.begin() + 1; word < command.end(); ++word) {
        const bool quoted = word->find(' ') != std::string::npos;
        arguments += quoted ? " \"" + *word + '"' : " " + *word;
    }
    const std::wstring program = ToWide(command.at(0));
    const std::wstring parameters = ToWide(arguments);
    SHELLEXECUTEINFOW start{};
    start.cbSize = sizeof start;
    start.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    start.lpFile = program.c_str();
    start.lpParameters = parameters.c_str();
    start.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&start) != 0;
}

void WindowsSystem::EndProcess(int exitCode) {
    std::_Exit(exitCode);
}

}  // namespace vx3260
