// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/ParallelPort.h"
#include "simulator/SimulatedBoard.h"

namespace vx3260 {

/// The simulated board on the machine's only printer port, at 888. At other addresses reads give
/// 255 and writes do nothing.
class SimulatedPort final : public ParallelPort {
  public:
    /// `seed` chooses the board's noise, which is the same in each run.
    explicit SimulatedPort(std::uint64_t seed = SimulatedBoard::DefaultSeed) : board_(seed) {}

    std::int32_t GetParallelPortCount() override { return 1; }
    std::int32_t ClaimParallelPort(std::int32_t portNumber, std::int32_t flag) override;
    std::int32_t GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) override;
    std::chrono::nanoseconds Now() const override { return std::chrono::nanoseconds(board_.Now()); }
    void OutByte(std::int16_t address, std::int16_t value) override;
    std::int16_t InByte(std::int16_t address) override;

    SimulatedBoard& Board() { return board_; }

  private:
    SimulatedBoard board_;
};

}  // namespace vx3260
