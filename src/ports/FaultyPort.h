// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ports/WrappedPort.h"

namespace vx3260 {

/// The faults of the wires.
struct Faults {
    static constexpr std::int64_t Never = std::numeric_limits<std::int64_t>::max();

    std::int16_t dataHigh = 0;  ///< lines of the data register that stick high, as a mask
    std::int16_t dataLow = 0;
    std::int16_t statusHigh = 0;  ///< lines of the status register that stick high, as a mask
    std::int16_t statusLow = 0;
    std::int64_t goneAfter = Never;  ///< port accesses after which the board is gone
    std::int64_t flipEvery = Never;  ///< of how many bits clocked out of the chip one is inverted

    std::vector<std::string> names{};  ///< of the faults, as AddFault was given them

    bool operator==(const Faults&) const = default;
};

/// One line of the list of faults a user can ask for.
struct FaultDescription {
    std::string_view name;  ///< ends in "=N" where a number belongs
    std::string_view text;
};

std::span<const FaultDescription> KnownFaults();

/// Adds the fault with this name to `faults`. False, and nothing added, for a name that is not
/// known or a number that is missing or below what the fault takes.
bool AddFault(std::string_view name, Faults& faults);

/// Any port, seen through faulty wires.
class FaultyPort final : public WrappedPort {
  public:
    FaultyPort(std::unique_ptr<ParallelPort> port, const Faults& faults);

    void OutByte(std::int16_t address, std::int16_t value) override;
    std::int16_t InByte(std::int16_t address) override;

  private:
    bool BoardGone() { return ++accesses_ > faults_.goneAfter; }
    std::int16_t StatusThroughFaults(std::int16_t status);

    Faults faults_;
    std::int16_t base_ = 0;
    std::int64_t accesses_ = 0;
    std::int64_t bitsClocked_ = 0;
    bool clockLow_ = false;
};

}  // namespace vx3260
