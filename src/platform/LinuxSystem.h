#pragma once

#include <string>

#include "app/OperatingSystem.h"

namespace vx3260 {

/// The Linux side of the operating-system seam. It belongs to neither Windows family.
class LinuxSystem final : public OperatingSystem {
  public:
    /// The arguments of main, the program's own path left out.
    LinuxSystem(int argumentCount, const char* const* arguments);

    SystemVersion QueryVersion() override { return {}; }
    std::string CommandLine() override { return commandLine_; }
    void EndProcess(int exitCode) override;

  private:
    std::string commandLine_;
};

}  // namespace vx3260
