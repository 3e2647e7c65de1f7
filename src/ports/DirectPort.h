// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "ports/DevicePort.h"

namespace vx3260 {

/// A printer port by the PC's own I/O instructions: the registers as they are, without a driver,
/// for the superuser only. Nobody else may use the port meanwhile: a driver's next access would
/// write its own copy of the control register.
class DirectPort final : public DevicePort {
  public:
    /// `address` is the base address; without it that of the device `path`, or of the first device
    /// there is when that is empty.
    DirectPort(std::optional<std::int32_t> address, const std::string& path,
               std::chrono::nanoseconds pollTime);

    std::int32_t GetParallelPortCount() override { return BaseAddress() == 0 ? 0 : 1; }
    std::string FailureDetail() const override { return failure_; }

  protected:
    bool Claim() override;
    void WriteRegister(std::int16_t offset, std::uint8_t value) override;
    std::uint8_t ReadRegister(std::int16_t offset) override;

  private:
    std::string failure_;
};

}  // namespace vx3260
