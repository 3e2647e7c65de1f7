// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <limits>

#include "simulator/AnalogModel.h"

namespace vx3260 {

/// The chip at its pins: a serial interface that decodes clock edges, the registers behind it,
/// conversions and calibrations with their durations. Defines its own addresses and bits, so that a
/// wrong mask in link/ shows.
///
/// A communications byte with bit 7, 5 or 4 set, or for an access the register lacks, is ignored.
/// 32 one bits in a row reset the chip as the reset line does.
class SimulatedChip {
  public:
    /// Starts ready to read: continuous conversion, both converters enabled.
    explicit SimulatedChip(std::uint64_t seed);

    /// The levels on the chip's inputs. DIN is taken on the rising clock edge, DOUT changes on the
    /// falling one; a low reset line holds the chip in reset.
    void SetLines(bool clock, bool din, bool notReset);

    bool Dout() const { return dout_; }

    /// True while an enabled converter holds an unread result; the pin is low then.
    bool Ready() const;

    /// Completes conversions and calibrations that are due. `now` is in nanoseconds and never
    /// goes back.
    void AdvanceTo(std::int64_t now) {
        now_ = now;
        if (now_ >= nextEvent_) {
            RunEvents();
        }
    }

    /// What a read of the register at this address would deliver, without reading it.
    std::uint32_t Contents(unsigned address) const;

    /// Sets a register's contents from outside; conversions start anew.
    void Preset(unsigned address, std::uint32_t value);

  private:
    enum class Phase { Command, Reading, Writing };
    enum Which : unsigned { mainAdc, auxAdc };

    struct ConverterState {
        std::uint32_t result = 0;
        bool unread = false;
        bool clamped = false;
    };

    void Reset();
    void RisingEdge(bool din);
    void FallingEdge();
    void StartAccess(std::uint32_t command);
    void Write(unsigned address, std::uint32_t value);
    void Restart();
    void RunEvents();
    void ConvertEnabled();
    void CalibrateEnabled(unsigned mode);

    unsigned Mode() const;
    bool Chcon() const;
    bool Enabled(Which which) const;
    std::int64_t Period() const;
    double InputVolts(Which which) const;
    ConversionSetup Setup(Which which) const;
    std::uint32_t StatusBits() const;
    std::uint32_t IoBits() const;

    static constexpr std::int64_t never = std::numeric_limits<std::int64_t>::max();

    std::array<std::uint32_t, 16> registers_{};
    std::array<ConverterState, 2> converters_{};
    AnalogModel analog_;

    bool clock_ = true;
    bool dout_ = true;
    Phase phase_ = Phase::Command;
    unsigned address_ = 0;
    int bitsLeft_ = 8;
    bool latched_ = false;
    std::uint32_t shift_ = 0;
    int onesInARow_ = 0;

    std::int64_t now_ = 0;
    std::int64_t nextEvent_ = never;
};

}  // namespace vx3260
