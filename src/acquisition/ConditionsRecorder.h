// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

#include "app/Services.h"
#include "link/BlockConditions.h"

namespace vx3260 {

/// Now.
UtcTime PresentTime();

/// Notes how a block is read. Makes no accesses to the chip: registers are those that the program
/// knows anyway.
class ConditionsRecorder {
  public:
    /// The reading starts now. `services` outlive the recorder.
    ConditionsRecorder(const Services& services, Converter converter);

    /// Called after each code.
    void CodeRead();

    /// The conditions of the block, which ended now this way. `referenceVoltage` is in volts.
    BlockConditions End(ReadingEnd outcome, float referenceVoltage) &&;

  private:
    const Services& services_;
    std::chrono::nanoseconds start_;
    BlockConditions conditions_;
};

}  // namespace vx3260
