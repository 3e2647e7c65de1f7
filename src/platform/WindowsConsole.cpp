#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>

#include "platform/Console.h"

namespace vx3260 {

namespace {

bool LeadsSomewhere(DWORD standardHandle) {
    return GetFileType(GetStdHandle(standardHandle)) != FILE_TYPE_UNKNOWN;
}

/// A program with windows has no console of its own. Where its output is not redirected and it was
/// started from a console, it writes there. Whether standard error leads somewhere then.
bool HasPlaceForErrors() {
    if (LeadsSomewhere(STD_ERROR_HANDLE)) {
        return true;
    }
    if (AttachConsole(ATTACH_PARENT_PROCESS) == 0) {
        return false;
    }
    std::freopen("CONOUT$", "w", stdout);
    std::freopen("CONOUT$", "w", stderr);
    return true;
}

void PassBytesUnchanged(std::FILE* stream) {
    if (_fileno(stream) >= 0) {
        _setmode(_fileno(stream), _O_BINARY);
    }
}

}  // namespace

Console PrepareConsole() {
    Console console;
    console.errIsSeen = HasPlaceForErrors();
    console.restorer = std::shared_ptr<void>(
        nullptr, [before = GetConsoleOutputCP()](void*) { SetConsoleOutputCP(before); });
    SetConsoleOutputCP(CP_UTF8);
    // Data files have the same bytes on every system: no CR is added to a line.
    PassBytesUnchanged(stdin);
    PassBytesUnchanged(stdout);
    DWORD mode = 0;
    console.errIsTerminal = GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) != 0) {
        console.outWidth = static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
    }
    return console;
}

}  // namespace vx3260
