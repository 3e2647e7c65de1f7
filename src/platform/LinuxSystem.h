// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/OperatingSystem.h"

namespace vx3260 {

/// The Linux side of the operating-system seam. It belongs to neither Windows family.
class LinuxSystem final : public OperatingSystem {
  public:
    /// The arguments of main, the program's own path left out.
    LinuxSystem(int argumentCount, const char* const* arguments);

    /// The words of the command line, the program's own path left out.
    const std::vector<std::string>& Arguments() const { return arguments_; }

    SystemVersion QueryVersion() override { return {}; }
    std::string CommandLine() override { return commandLine_; }
    std::optional<std::string> GetKeyValue(const std::string& key,
                                           const std::string& name) override;
    bool FileExists(const std::string& path) override;
    std::vector<std::string> DesktopSystemInformation() override;
    bool StartProgram(const std::vector<std::string>& command) override;
    void EndProcess(int exitCode) override;

  private:
    std::vector<std::string> arguments_;
    std::string commandLine_;
};

}  // namespace vx3260
