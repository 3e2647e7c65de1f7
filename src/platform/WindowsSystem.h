// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/OperatingSystem.h"

namespace vx3260 {

/// The Windows side of the operating-system seam.
class WindowsSystem final : public OperatingSystem {
  public:
    /// The arguments of main are in the system's code page, which lacks letters, so they are
    /// queried from the system instead.
    WindowsSystem(int argumentCount, const char* const* arguments);

    /// The words of the command line, the program's own path left out.
    const std::vector<std::string>& Arguments() const { return arguments_; }

    SystemVersion QueryVersion() override;
    std::string CommandLine() override;

    /// A whole command line without the program's path, which comes first, in quotation marks where
    /// it holds a space.
    static std::string WithoutProgram(const std::string& commandLine);

    std::optional<std::string> GetKeyValue(const std::string& key,
                                           const std::string& name) override;
    /// False for directories.
    bool FileExists(const std::string& path) override;
    /// Empty: on Windows only the registry names the program.
    std::vector<std::string> DesktopSystemInformation() override { return {}; }
    bool StartProgram(const std::vector<std::string>& command) override;
    void EndProcess(int exitCode) override;

  private:
    std::vector<std::string> arguments_;
};

}  // namespace vx3260
