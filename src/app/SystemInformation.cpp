// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SystemInformation.h"
#include "app/MessageTexts.h"

#include <string>
#include <vector>

namespace vx3260 {
namespace {

/// The program and its arguments; empty where there is none.
std::vector<std::string> FindSysInfo(OperatingSystem& system) {
    if (const auto path = system.GetKeyValue("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH")) {
        return {*path};
    }
    if (const auto folder =
            system.GetKeyValue("SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO")) {
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
