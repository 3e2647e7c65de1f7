// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "app/Services.h"

namespace vx3260 {

/// Whether the data-ready line announces results that the status register does not show: it is
/// stuck low, and what is read are not results. A pending result is read and discarded.
bool ReadyLineIsStuck(Services& services);

/// What to check then.
std::string CheckReadyLineAdvice(const ParallelPort& port);

}  // namespace vx3260
