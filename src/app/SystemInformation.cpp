// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SystemInformation.h"

#include <optional>
#include <string>
#include <vector>

#include "app/MessageTexts.h"

namespace vx3260 {
namespace {

/// A path in the registry; nothing for an empty one.
std::optional<std::string> RegisteredPath(OperatingSystem& system, const std::string& key,
                                          const std::string& name) {
    const auto path = system.GetKeyValue(key, name);
    return path && !path->empty() ? path : std::nullopt;
}

/// The program and its arguments; empty where there is none.
std::vector<std::string> FindSysInfo(OperatingSystem& system) {
    if (const auto path =
            RegisteredPath(system, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH")) {
        return {*path};
    }
    if (const auto folder =
            RegisteredPath(system, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO")) {
        const std::string path = *folder + "\\MSINFO32.EXE";
        if (system.FileExists(path)) {
            return {path};
        }
    }
    return system.DesktopSystemInformation();
}

}  // namespace

void StartSysInfo(Services& services) {
    const std::vector<std::string> command = FindSysInfo(services.system);
    if (command.empty() || !services.system.StartProgram(command)) {
        services.messages.Show({.text = std::string(MessageTexts::NoSystemInformation)});
    }
}

}  // namespace vx3260
