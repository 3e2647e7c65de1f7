// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/ParllioPort.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "link/BoardLines.h"
#include "numbers/WideText.h"

namespace vx3260 {
namespace {

constexpr const wchar_t* libraryName = L"parllio.dll";

/// Calls a system function that fills in a path.
template <typename Fill>
std::wstring Filled(const Fill& fill) {
    constexpr std::size_t longestPath = 32767;
    std::wstring path(longestPath, L'\0');
    path.resize(fill(path.data(), static_cast<DWORD>(path.size())));
    return path;
}

/// Where the library would be loaded from; empty where it is in none of these folders.
std::wstring LibraryPath() {
    const std::filesystem::path program =
        Filled([](wchar_t* path, DWORD size) { return GetModuleFileNameW(nullptr, path, size); });
    const std::wstring chosen =
        Filled([](wchar_t* path, DWORD size) { return GetDllDirectoryW(size, path); });
    const std::wstring system =
        Filled([](wchar_t* path, DWORD size) { return GetSystemDirectoryW(path, size); });
    const std::wstring folders = program.parent_path().wstring() + L';' + chosen + L';' + system;
    return Filled([&folders](wchar_t* path, DWORD size) {
        return SearchPathW(folders.c_str(), libraryName, nullptr, size, path, nullptr);
    });
}

/// Not from the current folder, which holds data files, nor from those of PATH. Suppresses the
/// system's message box for a file that is not a library.
HMODULE LoadPortLibrary() {
    DWORD before = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before);
    const HMODULE library = LoadLibraryExW(libraryName, nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    const DWORD error = GetLastError();
    SetThreadErrorMode(before, nullptr);
    SetLastError(error);
    return library;
}

std::uint32_t NumberAt(const std::string& bytes, std::size_t offset, std::size_t size) {
    std::uint32_t number = 0;
    if (offset + size <= bytes.size()) {
        std::memcpy(&number, bytes.data() + offset, size);
    }
    return number;
}

/// Whether a library is one of 32-bit code: its header's offset stands at 0x3C, and 4 bytes into
/// the header the machine.
bool Is32Bit(const std::wstring& path) {
    constexpr std::size_t bytesLooked = 4096;
    std::ifstream file(path.c_str(), std::ios::binary);
    std::string bytes(bytesLooked, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const std::size_t header = NumberAt(bytes, 0x3C, 4);
    return NumberAt(bytes, header + 4, 2) == IMAGE_FILE_MACHINE_I386;
}

std::string SystemReason(DWORD error) {
    std::array<wchar_t, 512> text{};
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    while (length > 0 && (text[length - 1] == L'\r' || text[length - 1] == L'\n')) {
        --length;
    }
    return length > 0 ? ToUtf8({text.data(), length}) : "error " + std::to_string(error);
}

std::string WhyNotLoaded(DWORD error) {
    const std::wstring path = LibraryPath();
    if (path.empty()) {
        return "The port library parllio.dll was not found. Put it into the program's folder.";
    }
    if (Is32Bit(path)) {
        return ToUtf8(path) +
               " is a 32-bit library. This program is a 64-bit one and needs the 64-bit "
               "parllio.dll.";
    }
    if (error == ERROR_BAD_EXE_FORMAT) {
        return ToUtf8(path) + " is not a library for 64-bit Windows. Is the file complete?";
    }
    if (error == ERROR_MOD_NOT_FOUND) {
        return ToUtf8(path) + " cannot be loaded: a library that it needs is missing.";
    }
    return ToUtf8(path) + " cannot be loaded: " + SystemReason(error);
}

}  // namespace

ParllioPort::ParllioPort(std::chrono::nanoseconds pollTime) : pace_(pollTime) {
    Load();
}

ParllioPort::~ParllioPort() {
    if (library_ != nullptr) {
        FreeLibrary(library_);
    }
}

void ParllioPort::Load() {
    library_ = LoadPortLibrary();
    if (library_ == nullptr) {
        failure_ = WhyNotLoaded(GetLastError());
        return;
    }
    if (!FindOperations()) {
        FreeLibrary(library_);
        library_ = nullptr;
    }
}

/// Looks up all of them, so that the message names every one that is missing.
bool ParllioPort::FindOperations() {
    Find(getCount_, "GetParallelPortCount");
    Find(claim_, "ClaimParallelPort");
    Find(getInfo_, "GetParallelPortInfo");
    Find(outByte_, "OutByte");
    Find(inByte_, "InByte");
    return failure_.empty();
}

template <typename Operation>
void ParllioPort::Find(Operation& operation, const char* name) {
    const FARPROC address = GetProcAddress(library_, name);
    if (address == nullptr) {
        failure_ += failure_.empty() ? "The port library parllio.dll lacks " : ", ";
        failure_ += name;
        return;
    }
    std::memcpy(&operation, &address, sizeof operation);
}

std::int32_t ParllioPort::GetParallelPortCount() {
    return library_ != nullptr ? getCount_() : 0;
}

std::int32_t ParllioPort::ClaimParallelPort(std::int32_t portNumber, std::int32_t flag) {
    if (library_ == nullptr) {
        return 0;
    }
    const std::int32_t claimed = claim_(portNumber, flag);
    if (claimed == 0) {
        failure_ = "The port library could not claim port " + std::to_string(portNumber) +
                   ". Is another program using it, and is the port's driver running?";
    }
    return claimed;
}

std::int32_t ParllioPort::GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) {
    static_assert(sizeof info == 12, "the library's own record");
    if (library_ == nullptr) {
        return 0;
    }
    const std::int32_t known = getInfo_(portNumber, &info);
    if (known == 0) {
        failure_ = "The port library knows no port " + std::to_string(portNumber) + ".";
    }
    return known;
}

void ParllioPort::OutByte(std::int16_t address, std::int16_t value) {
    if (library_ != nullptr) {
        outByte_(address, value);
    }
}

std::int16_t ParllioPort::InByte(std::int16_t address) {
    if (library_ == nullptr) {
        return BoardLines::Undriven;
    }
    return pace_.Paced([this, address] { return inByte_(address); });
}

}  // namespace vx3260
