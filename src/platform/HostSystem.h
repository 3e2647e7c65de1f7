// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#if defined(_WIN32)
#include "platform/WindowsSystem.h"
#else
#include "platform/LinuxSystem.h"
#endif

namespace vx3260 {

/// The system that this program was built for.
#if defined(_WIN32)
using HostSystem = WindowsSystem;
#else
using HostSystem = LinuxSystem;
#endif

}  // namespace vx3260
