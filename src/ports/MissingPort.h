#pragma once

#include "link/ParallelPort.h"

namespace vx3260 {

/// A machine without a printer port: nothing can be claimed, reads give 255, writes go nowhere.
class MissingPort final : public ParallelPort {
  public:
    std::int32_t GetParallelPortCount() override { return 0; }
    std::int32_t ClaimParallelPort(std::int32_t /*portNumber*/, std::int32_t /*flag*/) override {
        return 0;
    }
    std::int32_t GetParallelPortInfo(std::int32_t /*portNumber*/,
                                     ParallelPortInfo& /*info*/) override {
        return 0;
    }
    void OutByte(std::int16_t /*address*/, std::int16_t /*value*/) override {}
    std::int16_t InByte(std::int16_t /*address*/) override { return 0xFF; }
};

}  // namespace vx3260
