// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/ParallelPort.h"

namespace vx3260::bench {

/// A port that does nothing. Its type is hidden, so that no call through it can be resolved early.
ParallelPort& IdlePort();

}  // namespace vx3260::bench
