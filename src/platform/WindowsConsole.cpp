#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>

#include "platform/Console.h"

namespace vx3260 {

Console PrepareConsole() {
    SetConsoleOutputCP(CP_UTF8);
    // Data files have the same bytes on every system: no CR is added to a line.
    _setmode(_fileno(stdout), _O_BINARY);
    DWORD mode = 0;
    Console console{.errIsTerminal = GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0};
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info) != 0) {
        console.outWidth = static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
    }
    return console;
}

}  // namespace vx3260
