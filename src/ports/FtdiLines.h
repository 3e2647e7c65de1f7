// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "ports/FtdiUsb.h"
#include "ports/LineChoice.h"

namespace vx3260 {

/// Pins of an FTDI chip, named as those of a UART: TXD, RXD, RTS, CTS, DTR, DSR, DCD, RI. A USB
/// transfer takes a millisecond or more, so all steps of a word are made in one exchange.
///
/// The pins may change while the chip enters bit-bang mode: the converter is reset after the claim.
class FtdiLines final : public Lines {
  public:
    /// The choice is of FTDI pins, `devices` what it chooses from. `pins` may be empty, for a
    /// program without the USB library. Nothing is opened yet.
    FtdiLines(LineChoice choice, std::vector<FtdiDevice> devices,
              std::unique_ptr<PinExchange> pins);

    bool Claim(LineLevels outputs) override;
    void Set(LineLevels outputs, LineLevels changed) override;
    LineLevels Get() override;
    bool WaitForReady(std::chrono::nanoseconds limit) override;
    bool ExchangesAtOnce() const override { return true; }
    void Exchange(std::span<LineStep> steps) override;
    std::string ChipName() const override;
    std::string Failure() const override { return failure_; }

  private:
    bool FindPins();
    std::uint8_t BytesOf(LineLevels levels) const;
    LineLevels LevelsOf(std::uint8_t sample) const;
    std::vector<std::uint8_t> Send(std::vector<std::uint8_t> bytes);

    LineChoice choice_;
    std::vector<FtdiDevice> devices_;
    std::unique_ptr<PinExchange> pins_;
    std::array<std::uint8_t, LineRoles.size()> bits_{};  ///< by role; 0 for a line that is not used
    std::string name_;                                   ///< serial number or path
    std::uint8_t last_ = 0;                              ///< the byte put out last
    bool failed_ = false;
    std::string failure_;
};

}  // namespace vx3260
