// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"
#include "link/RegisterMap.h"

namespace vx3260 {

/// Reads one converter's results. Properties and port address as in Register.
class ReadData {
  public:
    ReadData(ParallelPort& parallelPort, const std::int16_t& portAddress,
             const RegisterMap::RegisterAccess& access)
        : WordLength(access.wordLength),
          ReadAddress(access.readByte),
          parallelPort_(parallelPort),
          portAddress_(portAddress) {}

    std::int16_t WordLength;   ///< bits of a result
    std::int16_t ReadAddress;  ///< whole communications byte that reads it

    /// Asks for a result, waits for data-ready and returns the code, or ReadTimeout. After a
    /// time-out the chip still waits for the clocks of this word.
    std::int32_t Read();

  private:
    ParallelPort& parallelPort_;
    const std::int16_t& portAddress_;
};

}  // namespace vx3260
