// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"

namespace vx3260 {

/// Whether the data-ready line shows that a result waits, or that a calibration has ended. `port`
/// is the base address. One read of the port.
bool IsReady(ParallelPort& parallelPort, std::int16_t port);

/// Waits until IsReady, for as long as `maxPolls` reads of the port take. False when it was not.
bool WaitForReady(ParallelPort& parallelPort, std::int16_t port, std::int32_t maxPolls);

}  // namespace vx3260
