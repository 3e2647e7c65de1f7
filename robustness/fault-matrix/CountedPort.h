// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "ports/WrappedPort.h"

namespace vx3260::matrix {

/// Ends a run that makes more accesses than it may. Not an exception of the standard library, so
/// that the program does not report it as an error of its own.
struct TooManyAccesses {};

/// Accesses of a run, and how many there may be.
struct AccessCount {
    std::int64_t made = 0;
    std::int64_t limit;
};

/// Counts the reads and writes of any port, whether or not they reach a board. Polls are reads.
class CountedPort final : public WrappedPort {
  public:
    CountedPort(std::unique_ptr<ParallelPort> port, AccessCount& count)
        : WrappedPort(std::move(port)), count_(count) {}

    void OutByte(std::int16_t address, std::int16_t value) override {
        Count();
        Inner().OutByte(address, value);
    }

    std::int16_t InByte(std::int16_t address) override {
        Count();
        return Inner().InByte(address);
    }

  private:
    void Count() {
        if (++count_.made > count_.limit) {
            throw TooManyAccesses{};
        }
    }

    AccessCount& count_;
};

}  // namespace vx3260::matrix
