// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "link/ChipAnswers.h"
#include "link/RegisterRecord.h"

namespace vx3260 {

/// The record that GetParallelPortInfo fills in: three 32-bit words.
struct ParallelPortInfo {
    std::int32_t size = 12;    ///< bytes of the record; set by the caller
    std::int32_t address = 0;  ///< base I/O address of the port
    std::int32_t reserved = 0;
};

/// One access of a transfer: a write of `value`, or a read into it.
struct PortTransfer {
    std::int16_t address;
    std::int16_t value;
    bool write;
};

/// A signal of the board and the line that carries it: "SCLK", "GPIO24".
struct WiredSignal {
    std::string signal;
    std::string line;
};

/// The printer port: the seam between the program and whatever carries the wires. The operations
/// are those of the port library parllio.
class ParallelPort {
  public:
    virtual ~ParallelPort() = default;

    /// Number of parallel ports of this machine.
    virtual std::int32_t GetParallelPortCount() = 0;

    /// Claims port `portNumber` (from 1) for this process, for as long as the process lives.
    /// Zero on failure. `flag` is always -1.
    virtual std::int32_t ClaimParallelPort(std::int32_t portNumber, std::int32_t flag) = 0;

    /// Fills in the base address of port `portNumber`. Zero on failure.
    virtual std::int32_t GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) = 0;

    /// What the user calls the port, such as "parport0"; empty if unknown.
    virtual std::string Name() const { return {}; }

    /// The single lines that carry the board; empty for a printer port.
    virtual std::vector<WiredSignal> Wiring() const { return {}; }

    /// What the accesses to the chip have met, kept by Register and ReadData.
    ChipAnswers& Answers() { return answers_; }
    const ChipAnswers& Answers() const { return answers_; }

    /// What the chip's registers held when they were last read or written, kept by Register.
    RegisterRecord& Registers() { return registers_; }
    const RegisterRecord& Registers() const { return registers_; }

    /// Forgets answers and registers, when the accesses go to another board.
    void ForgetBoard() {
        answers_.Forget();
        registers_.Forget();
    }

    /// The time by the board's clock, from any fixed moment on: real time, but for a simulated
    /// board, whose clock is its own.
    virtual std::chrono::nanoseconds Now() const {
        return std::chrono::steady_clock::now().time_since_epoch();
    }

    /// Why the last operation that failed did so, and what the user can do about it; a few lines.
    /// Empty if none failed or the reason is unknown.
    virtual std::string FailureDetail() const { return {}; }

    /// Writes the low 8 bits of `value` to an I/O address. Reports no errors.
    virtual void OutByte(std::int16_t address, std::int16_t value) = 0;

    /// Reads an I/O address; only the low 8 bits are significant. Reports no errors.
    virtual std::int16_t InByte(std::int16_t address) = 0;

    /// Makes the accesses in their order, one after the other; a port for which that is slow makes
    /// them all at once.
    virtual void Transfer(std::span<PortTransfer> accesses);

    /// Whether Transfer makes the accesses at once, so that they have no times of their own.
    virtual bool TransfersAtOnce() const { return false; }

    /// Waits until the lines of `mask` are low at an I/O address, for as long as `polls` reads of
    /// it take; false where they were not. Reads it without a pause, at most `polls` times; a port
    /// that can sleep until a line changes does that.
    virtual bool WaitForLow(std::int16_t address, std::int16_t mask, std::int32_t polls);

    /// Whether WaitForLow does not read the address.
    virtual bool WaitsWithoutReading() const { return false; }

  protected:
    ParallelPort() = default;
    ParallelPort(const ParallelPort&) = default;
    ParallelPort(ParallelPort&&) = default;
    ParallelPort& operator=(const ParallelPort&) = default;
    ParallelPort& operator=(ParallelPort&&) = default;

  private:
    ChipAnswers answers_;
    RegisterRecord registers_;
};

}  // namespace vx3260
