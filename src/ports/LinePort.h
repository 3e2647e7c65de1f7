// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ports/DevicePort.h"
#include "ports/LineChoice.h"
#include "ports/Lines.h"

namespace vx3260 {

/// The board on single lines, as the printer port that the rest of the program knows, at address
/// 888: the outputs of the data register and the inputs of the status register. The control
/// register is remembered and does nothing. A pattern that changes no line is not passed on.
class LinePort final : public DevicePort {
  public:
    /// `names` are what `lines` are called.
    LinePort(std::unique_ptr<Lines> lines, LineNames names, std::chrono::nanoseconds pollTime);

    std::int32_t GetParallelPortCount() override { return 1; }
    std::string Name() const override { return lines_->ChipName(); }
    std::vector<WiredSignal> Wiring() const override;
    std::string FailureDetail() const override { return lines_->Failure(); }

    void Transfer(std::span<PortTransfer> accesses) override;
    bool TransfersAtOnce() const override { return lines_->ExchangesAtOnce(); }
    bool WaitForLow(std::int16_t address, std::int16_t mask, std::int32_t polls) override;
    bool WaitsWithoutReading() const override { return true; }

  protected:
    bool Claim() override;
    void WriteRegister(std::int16_t offset, std::uint8_t value) override;
    std::uint8_t ReadRegister(std::int16_t offset) override;

  private:
    std::unique_ptr<Lines> lines_;
    LineNames names_;
    LineLevels used_ = 0;  ///< outputs that have a line
    LineLevels outputs_ = 0;
    std::uint8_t data_ = BoardLines::Idle;
    std::uint8_t control_ = 0;
};

}  // namespace vx3260
