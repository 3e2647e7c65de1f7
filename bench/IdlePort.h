// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/ParallelPort.h"

namespace vx3260::bench {

/// A port that does nothing. Its type is hidden, so that no call through it can be resolved early.
ParallelPort& IdlePort();

/// The same, but a word's accesses come collected, as for a chip behind USB.
ParallelPort& IdleTransferPort();

}  // namespace vx3260::bench
