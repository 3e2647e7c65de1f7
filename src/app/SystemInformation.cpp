#include "app/SystemInformation.h"

#include <optional>
#include <string>

namespace vx3260 {
namespace {

std::optional<std::string> FindSysInfo(OperatingSystem& system) {
    if (auto path = system.GetKeyValue("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH")) {
        return path;
    }
    if (const auto folder =
            system.GetKeyValue("SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO")) {
        const std::string path = *folder + "\\MSINFO32.EXE";
        if (system.FileExists(path)) {
            return path;
        }
    }
    return system.DesktopSystemInformation();
}

}  // namespace

void StartSysInfo(Services& services) {
    const auto path = FindSysInfo(services.system);
    if (!path || !services.system.StartProgram(*path)) {
        services.messages.Show({.text = "System Information Is Unavailable At This Time"});
    }
}

}  // namespace vx3260
