// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>

#include "numbers/WideText.h"
#include "platform/Console.h"

namespace vx3260 {
namespace {

void PassBytesUnchanged(std::FILE* stream) {
    if (_fileno(stream) >= 0) {
        _setmode(_fileno(stream), _O_BINARY);
    }
}

/// Characters in a line; 0 where the stream is not a console.
std::size_t WidthOf(DWORD stream) {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    return GetConsoleScreenBufferInfo(GetStdHandle(stream), &info) != 0
               ? static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1)
               : 0;
}

/// A console takes UTF-16 whatever its code page is, a file or a pipe bytes.
void WriteText(HANDLE handle, const std::string& text) {
    const std::wstring wide = ToWide(text);
    DWORD written = 0;
    if (WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr) ==
        0) {
        WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    }
}

}  // namespace

Console PrepareConsole() {
    Console console;
    console.restorer = std::shared_ptr<void>(
        nullptr, [before = GetConsoleOutputCP()](void*) { SetConsoleOutputCP(before); });
    SetConsoleOutputCP(CP_UTF8);
    // Data files have the same bytes on every system: no CR is added to a line.
    PassBytesUnchanged(stdin);
    PassBytesUnchanged(stdout);
    DWORD mode = 0;
    console.inIsTerminal = GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
    console.outWidth = WidthOf(STD_OUTPUT_HANDLE);
    console.errWidth = WidthOf(STD_ERROR_HANDLE);
    return console;
}

bool OutputReaderHasGone() {
    return false;
}

/// A program with windows detaches from the starter's console at once: otherwise it would end with
/// the console, and with every Ctrl+C typed there.
bool Print(StandardStream stream, const std::string& text) {
    const HANDLE given =
        GetStdHandle(stream == StandardStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    if (GetFileType(given) != FILE_TYPE_UNKNOWN) {
        WriteText(given, text);
        return true;
    }
    if (AttachConsole(ATTACH_PARENT_PROCESS) == 0) {
        return false;
    }
    const HANDLE console =
        CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    WriteText(console, text);
    CloseHandle(console);
    FreeConsole();
    return true;
}

}  // namespace vx3260
