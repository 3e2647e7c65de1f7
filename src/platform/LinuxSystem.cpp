// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LinuxSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace vx3260 {
namespace {

/// Those of the common desktops, then one for all of them.
const std::vector<std::vector<std::string>>& SystemInformationPrograms() {
    static const std::vector<std::vector<std::string>> programs{
        {"kinfocenter"},
        {"gnome-control-center", "info-overview"},
        {"cinnamon-settings", "info"},
        {"hardinfo2"},
        {"hardinfo"},
        {"mate-system-monitor", "--show-system-tab"},
    };
    return programs;
}

bool IsProgram(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           access(path.c_str(), X_OK) == 0;
}

/// The path of a program in the folders of PATH; empty if it is in none. Relative folders are
/// skipped: their contents depend on where the program was started.
std::string FindInPath(const std::string& program) {
    const char* const path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (!folder.starts_with('/')) {
            continue;
        }
        folder.append("/").append(program);
        if (IsProgram(folder)) {
            return folder;
        }
    }
    return {};
}

/// Ends a process that was to become the program.
[[noreturn]] void EndWithFailure(int failure) {
    const char failed = 1;
    _exit(write(failure, &failed, 1) == 1 ? 1 : 2);
}

/// In a process of its own: becomes the program, or writes to `failure` and ends.
[[noreturn]] void BecomeProgram(const std::vector<std::string>& command, int failure) {
    std::vector<char*> words;
    words.reserve(command.size() + 1);
    for (const std::string& word : command) {
        words.push_back(const_cast<char*>(word.c_str()));
    }
    words.push_back(nullptr);
    setsid();
    // The program would inherit the signals that are ignored (PrepareConsole) or blocked
    // (EndSignals).
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    execv(words[0], words.data());
    EndWithFailure(failure);
}

}  // namespace

LinuxSystem::LinuxSystem(int argumentCount, const char* const* arguments)
    : arguments_(arguments + std::min(argumentCount, 1), arguments + argumentCount) {
    for (const std::string& word : arguments_) {
        commandLine_ += commandLine_.empty() ? "" : " ";
        commandLine_ += word;
    }
}

std::optional<std::string> LinuxSystem::GetKeyValue(const std::string& /*key*/,
                                                    const std::string& /*name*/) {
    return std::nullopt;
}

bool LinuxSystem::FileExists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

std::vector<std::string> LinuxSystem::DesktopSystemInformation() {
    for (std::vector<std::string> command : SystemInformationPrograms()) {
        const std::string path = FindInPath(command.front());
        if (!path.empty()) {
            command.front() = path;
            return command;
        }
    }
    return {};
}

/// The pipe closes when the program starts; a byte in it means that it did not. The grandchild is
/// not a child of this process, so it never becomes a zombie here.
bool LinuxSystem::StartProgram(const std::vector<std::string>& command) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return false;
    }
    const pid_t child = fork();
    if (child == 0) {
        const pid_t grandchild = fork();
        if (grandchild == 0) {
            BecomeProgram(command, ends[1]);
        }
        if (grandchild < 0) {
            EndWithFailure(ends[1]);
        }
        _exit(0);
    }
    close(ends[1]);
    char failed = 0;
    const bool started = child > 0 && read(ends[0], &failed, 1) == 0;
    close(ends[0]);
    if (child > 0) {
        waitpid(child, nullptr, 0);
    }
    return started;
}

void LinuxSystem::EndProcess(int exitCode) {
    std::_Exit(exitCode);
}

}  // namespace vx3260
