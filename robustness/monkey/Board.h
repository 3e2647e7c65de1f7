// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>

#include "ports/FaultyPort.h"
#include "ports/SimulatedPort.h"

namespace vx3260::monkey {

/// The simulated board with wires that break and are repaired.
class Board final : public WrappedPort {
  public:
    explicit Board(std::uint64_t seed) : WrappedPort(std::make_unique<SimulatedPort>(seed)) {}

    void Break(const Faults& faults) {
        broken_ = std::make_unique<FaultyPort>(std::make_unique<Wires>(Inner()), faults);
    }
    void Repair() { broken_.reset(); }
    bool IsBroken() const { return broken_ != nullptr; }

    /// Contents of the chip's registers, without an access.
    SimulatedChip& Chip() { return static_cast<SimulatedPort&>(Inner()).Board().Chip(); }

    void OutByte(std::int16_t address, std::int16_t value) override {
        Path().OutByte(address, value);
    }
    std::int16_t InByte(std::int16_t address) override { return Path().InByte(address); }

  private:
    /// Another owner's port.
    class Wires final : public ParallelPort {
      public:
        explicit Wires(ParallelPort& board) : board_(board) {}
        std::int32_t GetParallelPortCount() override { return board_.GetParallelPortCount(); }
        std::int32_t ClaimParallelPort(std::int32_t portNumber, std::int32_t flag) override {
            return board_.ClaimParallelPort(portNumber, flag);
        }
        std::int32_t GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) override {
            return board_.GetParallelPortInfo(portNumber, info);
        }
        void OutByte(std::int16_t address, std::int16_t value) override {
            board_.OutByte(address, value);
        }
        std::int16_t InByte(std::int16_t address) override { return board_.InByte(address); }

      private:
        ParallelPort& board_;
    };

    ParallelPort& Path() { return broken_ ? *broken_ : Inner(); }

    std::unique_ptr<FaultyPort> broken_;
};

}  // namespace vx3260::monkey
