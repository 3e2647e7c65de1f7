// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "app/OperatingSystem.h"
#include "app/Services.h"

namespace vx3260 {

/// Volts, until the user enters another.
inline constexpr float DefaultReferenceVoltage = 2.5F;

/// The operating system's name: "Windows 95", "Windows 98", "Windows NT 3.51", "Windows NT 4.0" or
/// "Windows 2000"; empty for another version of the two families, "Failed" for another system.
std::string GetWindowsVersion(OperatingSystem& system);

/// Whether the command line holds "/SS" in any case, even inside a word.
bool StatusRequested(OperatingSystem& system);

/// Whether a text holds "/SS" in any case.
bool HoldsStatusSwitch(std::string_view text);

/// Whether a word is "/SS" in any case.
bool IsStatusSwitch(std::string_view word);

/// Detects the system, finds the printer port's address (and claims the port, but for Windows 95
/// and 98), clears bits 0, 1, 3 and 5 of its control register and, where the status was requested,
/// shows system and address. What fails is shown in a message box; start-up goes on.
void SetUpPort(Services& services, bool statusRequested);

/// All that comes before the first window: SetUpPort, then DefaultReferenceVoltage.
void StartUp(Services& services, bool statusRequested);

/// The same, showing the status if StatusRequested.
void StartUp(Services& services);

}  // namespace vx3260
