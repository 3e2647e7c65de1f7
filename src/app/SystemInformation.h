// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Services.h"

namespace vx3260 {

/// Starts the system's own information program: on Windows the one that the registry names, else
/// that of the desktop. If there is none, or it does not start, a message box says so.
void StartSysInfo(Services& services);

}  // namespace vx3260
