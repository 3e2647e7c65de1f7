// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vx3260 {

/// The result of the Windows version query. Other systems give platform 0.
struct SystemVersion {
    std::int32_t platform = 0;  ///< 1 is the Windows 95 family, 2 the NT family
    std::int32_t major = 0;
    std::int32_t minor = 0;
};

/// What the program asks of the system it runs on.
class OperatingSystem {
  public:
    virtual ~OperatingSystem() = default;

    virtual SystemVersion QueryVersion() = 0;

    /// The arguments as the user typed them, without the program's own path.
    virtual std::string CommandLine() = 0;

    /// A value under HKEY_LOCAL_MACHINE in the Windows registry: a string as it is, in UTF-8, a
    /// 32-bit number as hexadecimal text after "&h". Nothing where there is none, nor a registry.
    virtual std::optional<std::string> GetKeyValue(const std::string& key,
                                                   const std::string& name) = 0;

    virtual bool FileExists(const std::string& path) = 0;

    /// The desktop's system-information program, a path and its arguments; empty where none is
    /// installed.
    virtual std::vector<std::string> DesktopSystemInformation() = 0;

    /// Starts a program, a path and its arguments, with a normal window and goes on. False when it
    /// does not start.
    virtual bool StartProgram(const std::vector<std::string>& command) = 0;

    /// Ends the process at once: no destructor runs, the port is not released.
    virtual void EndProcess(int exitCode) = 0;

  protected:
    OperatingSystem() = default;
    OperatingSystem(const OperatingSystem&) = default;
    OperatingSystem(OperatingSystem&&) = default;
    OperatingSystem& operator=(const OperatingSystem&) = default;
    OperatingSystem& operator=(OperatingSystem&&) = default;
};

}  // namespace vx3260
