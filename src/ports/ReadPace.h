// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace vx3260 {

/// Minimum time of a status access, chosen so that the limit of 100000 polls outlasts the slowest
/// conversion (187 ms) on a machine that reads a port in less than 2 us.
inline constexpr std::chrono::nanoseconds DefaultPollTime = std::chrono::microseconds(4);

/// Holds a real port's reads to a minimum time by polling the monotonic clock: a call that sleeps
/// would take some 50 us.
class ReadPace {
  public:
    explicit ReadPace(std::chrono::nanoseconds minTime) : minTime_(minTime) {}

    std::chrono::nanoseconds MinTime() const { return minTime_; }

    /// Calls `read`, waits out the rest of the time and returns what was read.
    template <typename Read>
    auto Paced(const Read& read) const {
        const auto end = std::chrono::steady_clock::now() + minTime_;
        const auto value = read();
        while (std::chrono::steady_clock::now() < end) {
        }
        return value;
    }

  private:
    std::chrono::nanoseconds minTime_;
};

}  // namespace vx3260
