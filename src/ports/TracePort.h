// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "ports/AccessDecoder.h"
#include "ports/VcdWriter.h"
#include "ports/WrappedPort.h"

namespace vx3260 {

/// Any port, with a trace of its wires as a Value Change Dump: SCLK, DIN, RESET, DOUT, RDY and the
/// access that they carry, in words. Each access at the base address in use that changes a line is
/// a step with a time of its own; DOUT and RDY change when the program reads them and are unknown
/// until then. Its time is that of the board's clock since the trace began. Before the program's
/// first write the outputs are shown at rest.
///
/// The steps of a transfer that the port makes at once are spread evenly over its time; after a
/// wait that the port sleeps through, one read shows the lines.
///
/// A write that fails, as on a full disk, ends the trace with a line on standard error; the port
/// goes on.
class TracePort final : public WrappedPort {
  public:
    /// Throws FileAccessError when the file cannot be written. `portAddress` is the base address in
    /// use, read afresh at every access, 0 where there is none yet; it outlives the port's last
    /// access. The port itself is never asked for it: start-up asks, in an order of its own.
    TracePort(std::unique_ptr<ParallelPort> port, const std::string& path,
              const std::int16_t& portAddress);

    /// Extends the trace to the present, so that it shows the duration of a last wait. A process
    /// that ends without this loses no change.
    ~TracePort() override;
    TracePort(const TracePort&) = delete;
    TracePort(TracePort&&) = delete;
    TracePort& operator=(const TracePort&) = delete;
    TracePort& operator=(TracePort&&) = delete;

    void OutByte(std::int16_t address, std::int16_t value) override;
    std::int16_t InByte(std::int16_t address) override;
    void Transfer(std::span<PortTransfer> accesses) override;
    bool TransfersAtOnce() const override { return Inner().TransfersAtOnce(); }
    bool WaitForLow(std::int16_t address, std::int16_t mask, std::int32_t polls) override;
    bool WaitsWithoutReading() const override { return Inner().WaitsWithoutReading(); }

  private:
    bool IsRegister(std::int16_t address, std::int16_t offset) const;
    std::chrono::nanoseconds SinceStart() const { return Now() - start_; }
    void TraceWrite(std::int16_t address, std::int16_t value);
    void TraceRead(std::int16_t address, std::int16_t value);
    void TraceStep();
    void Trace(const std::function<void(VcdWriter&)>& write);

    std::chrono::nanoseconds start_;
    const std::int16_t& portAddress_;
    std::optional<VcdWriter> vcd_;  ///< empty once the trace has ended
    AccessDecoder decoder_;
    std::int16_t outputs_;
    std::optional<std::int16_t> inputs_;  ///< empty until they have been read
    /// When the step being traced was made, where that is not now.
    std::optional<std::chrono::nanoseconds> stepTime_;
};

}  // namespace vx3260
