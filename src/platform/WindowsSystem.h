#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/OperatingSystem.h"

namespace vx3260 {

/// The Windows side of the operating-system seam.
class WindowsSystem final : public OperatingSystem {
  public:
    SystemVersion QueryVersion() override;
    std::string CommandLine() override;
    std::optional<std::string> GetKeyValue(const std::string& key,
                                           const std::string& name) override;
    bool FileExists(const std::string& path) override;
    /// The registry names the program here; there is no other.
    std::vector<std::string> DesktopSystemInformation() override { return {}; }
    bool StartProgram(const std::vector<std::string>& command) override;
    void EndProcess(int exitCode) override;
};

}  // namespace vx3260
