// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "simulator/SimulatedChip.h"

namespace vx3260 {

/// The evaluation board on a printer port: bytes written to the port's registers and bytes read
/// from them. Its clock is virtual: every access moves it on by 4 microseconds.
class SimulatedBoard {
  public:
    static constexpr std::int64_t NanosecondsPerAccess = 4000;
    static constexpr std::uint64_t DefaultSeed = 3260;

    explicit SimulatedBoard(std::uint64_t seed = DefaultSeed) : chip_(seed) {}

    /// `offset` counts from the port's base address: 0 data, 1 status, 2 control. The data lines
    /// reach the chip only while control bit 5 is clear.
    void Write(unsigned offset, std::uint8_t value);
    std::uint8_t Read(unsigned offset);

    /// Virtual time since power-up, in nanoseconds.
    std::int64_t Now() const { return now_; }

    SimulatedChip& Chip() { return chip_; }

  private:
    void Tick() {
        now_ += NanosecondsPerAccess;
        chip_.AdvanceTo(now_);
    }
    void DriveLines();

    SimulatedChip chip_;
    std::int64_t now_ = 0;
    std::uint8_t data_ = 0x1A;
    std::uint8_t control_ = 0x0C;
};

}  // namespace vx3260
