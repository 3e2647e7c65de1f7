// SPDX-License-Identifier: GPL-3.0-or-later
#include "IdlePort.h"

#include <benchmark/benchmark.h>

namespace vx3260::bench {
namespace {

class Idle : public ParallelPort {
  public:
    std::int32_t GetParallelPortCount() override { return 1; }
    std::int32_t ClaimParallelPort(std::int32_t /*portNumber*/, std::int32_t /*flag*/) override {
        return 1;
    }
    std::int32_t GetParallelPortInfo(std::int32_t /*portNumber*/,
                                     ParallelPortInfo& /*info*/) override {
        return 0;
    }
    void OutByte(std::int16_t /*address*/, std::int16_t /*value*/) override {}
    std::int16_t InByte(std::int16_t /*address*/) override { return 0x40; }
};

class IdleTransfers final : public Idle {
  public:
    bool TransfersAtOnce() const override { return true; }
    void Transfer(std::span<PortTransfer> accesses) override {
        benchmark::DoNotOptimize(accesses.data());
    }
};

}  // namespace

ParallelPort& IdlePort() {
    static Idle port;
    return port;
}

ParallelPort& IdleTransferPort() {
    static IdleTransfers port;
    return port;
}

}  // namespace vx3260::bench
