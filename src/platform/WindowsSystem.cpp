#include "platform/WindowsSystem.h"

#include <windows.h>
// What parses a command line is declared in a header of its own, after the one above.
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "numbers/NumberText.h"
#include "platform/WideText.h"

namespace vx3260 {
namespace {

/// Query, enumerate and create below a key, and notify of changes: what such look-ups ask for.
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
    info.dwOSVersionInfoSize = sizeof info;
    std::fill(std::begin(info.szCSDVersion), std::end(info.szCSDVersion), ' ');
    if (GetVersionExA(&info) == 0) {
        return {};
    }
    return {static_cast<std::int32_t>(info.dwPlatformId),
            static_cast<std::int32_t>(info.dwMajorVersion),
            static_cast<std::int32_t>(info.dwMinorVersion)};
}

/// The program's own path comes first, in quotation marks where it holds a blank.
std::string WindowsSystem::CommandLine() {
    const std::string whole = ToUtf8(GetCommandLineW());
    const std::size_t pathEnd = whole.starts_with('"') ? whole.find('"', 1) : 0;
    const std::size_t blank = whole.find(' ', pathEnd);
    return blank == std::string::npos ? std::string() : whole.substr(blank + 1);
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
        return UpToZero(bytes.data(), size);
    }
    if (type == REG_DWORD && size == sizeof(std::int32_t)) {
        std::int32_t number = 0;
        std::memcpy(&number, bytes.data(), sizeof number);
        return "&h" + HexText(number);
    }
    return std::nullopt;
}

bool WindowsSystem::FileExists(const std::string& path) {
    return GetFileAttributesW(ToWide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool WindowsSystem::StartProgram(const std::vector<std::string>& command) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    std::string line;
    for (const std::string& word : command) {
        line += (line.empty() ? "\"" : " \"") + word + '"';
    }
    std::wstring wideLine = ToWide(line);
    if (CreateProcessW(ToWide(command.at(0)).c_str(), wideLine.data(), nullptr, nullptr, FALSE, 0,
                       nullptr, nullptr, &startup, &process) == 0) {
        return false;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

void WindowsSystem::EndProcess(int exitCode) {
    ExitProcess(static_cast<UINT>(exitCode));
}

}  // namespace vx3260
