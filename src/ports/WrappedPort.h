// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "link/ParallelPort.h"

namespace vx3260 {

/// A port around another one. Forwards everything except reads and writes.
class WrappedPort : public ParallelPort {
  public:
    std::int32_t GetParallelPortCount() final { return inner_->GetParallelPortCount(); }
    std::int32_t ClaimParallelPort(std::int32_t portNumber, std::int32_t flag) final {
        return inner_->ClaimParallelPort(portNumber, flag);
    }
    std::int32_t GetParallelPortInfo(std::int32_t portNumber, ParallelPortInfo& info) final {
        return inner_->GetParallelPortInfo(portNumber, info);
    }
    std::string Name() const final { return inner_->Name(); }
    std::vector<WiredSignal> Wiring() const final { return inner_->Wiring(); }
    std::chrono::nanoseconds Now() const final { return inner_->Now(); }
    std::string FailureDetail() const final { return inner_->FailureDetail(); }

  protected:
    explicit WrappedPort(std::unique_ptr<ParallelPort> inner) : inner_(std::move(inner)) {}

    ParallelPort& Inner() { return *inner_; }
    const ParallelPort& Inner() const { return *inner_; }

  private:
    std::unique_ptr<ParallelPort> inner_;
};

}  // namespace vx3260
