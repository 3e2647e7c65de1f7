// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/BoardLines.h"
#include "link/ParallelPort.h"
#include "ports/ReadPace.h"

namespace vx3260 {

/// A printer port of this machine, reported as the only one, number 1. What all kinds share: their
/// addresses and the pace of reads. Accesses at other addresses, and all before the port has been
/// claimed, read 255 and write nothing.
class DevicePort : public ParallelPort {
  public:
    std::int32_t ClaimParallelPort(std::int32_t portNumber, std::int32_t flag) final;
    std::int32_t GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) final;
    void OutByte(std::int16_t address, std::int16_t value) final;
    std::int16_t InByte(std::int16_t address) final;

  protected:
    /// `baseAddress` is what GetParallelPortInfo reports, 0 where there is no port to report.
    DevicePort(std::int32_t baseAddress, std::chrono::nanoseconds pollTime)
        : baseAddress_(baseAddress), pace_(pollTime) {}

    std::int32_t BaseAddress() const { return baseAddress_; }

    /// The minimum time of a read.
    std::chrono::nanoseconds PollTime() const { return pace_.MinTime(); }

    /// Whether an address is that of one of the port's registers, and can be reached.
    bool IsRegister(std::int16_t address, std::int16_t offset) const {
        return Reaches(address) && address - baseAddress_ == offset;
    }

    /// Claims the port. False on failure; FailureDetail then gives the reason.
    virtual bool Claim() = 0;

    /// One of the port's registers, counted from its base address as in BoardLines. Called only
    /// once the port has been claimed.
    virtual void WriteRegister(std::int16_t offset, std::uint8_t value) = 0;
    virtual std::uint8_t ReadRegister(std::int16_t offset) = 0;

  private:
    bool Reaches(std::int16_t address) const {
        return claimed_ && address >= baseAddress_ &&
               address - baseAddress_ < BoardLines::RegisterCount;
    }

    std::int32_t baseAddress_;
    ReadPace pace_;
    bool claimed_ = false;
};

}  // namespace vx3260
