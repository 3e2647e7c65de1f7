// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

namespace vx3260 {

/// Moments are kept to the millisecond.
using UtcTime = std::chrono::sys_time<std::chrono::milliseconds>;

/// A moment to the second: "2026-11-22 07:12:31 UTC".
std::string TimeText(UtcTime time);

/// A moment as files have it, by ISO 8601: "2026-11-22T07:12:31.250Z".
std::string IsoTimeText(UtcTime time);

}  // namespace vx3260
