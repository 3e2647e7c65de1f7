#include "platform/LinuxSystem.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

namespace vx3260 {
namespace {

/// Of the common desktops, and one that is at home on all of them.
constexpr const char* systemInformationPrograms[] = {
    "kinfocenter",          "hardinfo2",        "hardinfo", "mate-system-monitor",
    "gnome-system-monitor", "xfce4-taskmanager"};

std::optional<std::string> FindInPath(const std::string& program) {
    const char* const path = std::getenv("PATH");
    std::istringstream folders(path == nullptr ? "" : path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        std::string candidate = folder + "/" + program;
        if (!folder.empty() && access(candidate.c_str(), X_OK) == 0) {
            return candidate;
        }
    }
    return std::nullopt;
}

}  // namespace

LinuxSystem::LinuxSystem(int argumentCount, const char* const* arguments) {
    for (int i = 1; i < argumentCount; ++i) {
        commandLine_ += i == 1 ? "" : " ";
        commandLine_ += arguments[i];
    }
}

std::optional<std::string> LinuxSystem::GetKeyValue(const std::string& /*key*/,
                                                    const std::string& /*name*/) {
    return std::nullopt;
}

bool LinuxSystem::FileExists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

std::optional<std::string> LinuxSystem::DesktopSystemInformation() {
    for (const char* program : systemInformationPrograms) {
        if (const auto path = FindInPath(program)) {
            return path;
        }
    }
    return std::nullopt;
}

/// The grandchild belongs to nobody here, so it is never left behind as a zombie.
bool LinuxSystem::StartProgram(const std::string& path) {
    const pid_t child = fork();
    if (child < 0) {
        return false;
    }
    if (child == 0) {
        const pid_t program = fork();
        if (program == 0) {
            setsid();
            execl(path.c_str(), path.c_str(), static_cast<char*>(nullptr));
            _exit(1);
        }
        _exit(program < 0 ? 1 : 0);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void LinuxSystem::EndProcess(int exitCode) {
    std::_Exit(exitCode);
}

}  // namespace vx3260
