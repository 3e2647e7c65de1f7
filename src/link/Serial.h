// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>

#include "link/ParallelPort.h"

namespace vx3260 {

/// Status reads after which a wait for data-ready is given up.
inline constexpr std::int32_t PollLimit = 100000;

/// What SerialReadWhenReady returns when data-ready did not come; outside every genuine result.
inline constexpr std::int32_t ReadTimeout = std::numeric_limits<std::int32_t>::min();

/// Sends the low `bits` bits of `value`, most significant first, at the port with base address
/// `port`: 3 x bits + 1 port writes. The data line changes with the falling clock edge and is held
/// across the rising one. `bits` is 0 to 31; 32 and more throws OverflowError.
void SerialWrite(ParallelPort& parallelPort, std::int32_t value, std::int16_t port,
                 std::int16_t bits);

/// Receives `bits` bits, most significant first, without waiting: 2 x bits + 1 port writes and
/// `bits` status reads. Bits above are zero. `bits` as for SerialWrite.
std::int32_t SerialRead(ParallelPort& parallelPort, std::int16_t bits, std::int16_t port);

/// Waits for data-ready, then receives as SerialRead does. A wait that reaches PollLimit status
/// reads ends with ReadTimeout, whatever the last of them showed; nothing is clocked then.
std::int32_t SerialReadWhenReady(ParallelPort& parallelPort, std::int16_t bits, std::int16_t port);

}  // namespace vx3260
