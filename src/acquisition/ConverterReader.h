// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/Converter.h"
#include "link/ParallelPort.h"
#include "link/ReadData.h"
#include "link/Register.h"

namespace vx3260 {

/// Reads the codes of one converter. While both converters run, the other one's result is
/// read first each time: data-ready announces either, so an unread one would pass for a new result.
class ConverterReader {
  public:
    /// References as for Register.
    ConverterReader(ParallelPort& parallelPort, const std::int16_t& portAddress,
                    Converter converter);

    /// Reads both control registers, the main one first, and keeps their values.
    void ReadControls();

    /// What ReadControls found in a converter's control register.
    std::int32_t Control(Converter converter) const {
        return converter == Converter::Main ? mainControlValue_ : auxControlValue_;
    }
    bool Enabled(Converter converter) const;

    bool Enabled() const { return Enabled(converter_); }
    bool BothEnabled() const { return Enabled() && Enabled(OtherConverter(converter_)); }

    /// The next code, or ReadTimeout. A time-out of the other converter is ignored.
    std::int32_t ReadCode();

    /// After a ReadCode with a time-out, clocks out the rest of the word that the chip waits for,
    /// so that it takes the next access for what it is.
    void CompleteWord();

    /// The other converter's code of the last ReadCode.
    std::int32_t CodeAlongside() const { return codeAlongside_; }

  private:
    ParallelPort& parallelPort_;
    const std::int16_t& portAddress_;
    Converter converter_;
    ReadData data_;
    ReadData otherData_;
    Register mainControl_;
    Register auxControl_;
    std::int32_t mainControlValue_ = 0;
    std::int32_t auxControlValue_ = 0;
    std::int32_t codeAlongside_ = 0;
    std::int32_t code_ = 0;  ///< of the last ReadCode
};

}  // namespace vx3260
