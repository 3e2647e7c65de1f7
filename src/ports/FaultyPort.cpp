// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/FaultyPort.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "link/BoardLines.h"
#include "numbers/WholeNumber.h"

namespace vx3260 {
namespace {

struct StuckLine {
    FaultDescription description;
    std::int16_t Faults::*mask;
    std::int16_t line;
};

constexpr StuckLine stuckLines[] = {
    {{"sclk-stuck-high", "the clock line stays high"}, &Faults::dataHigh, BoardLines::Clock},
    {{"sclk-stuck-low", "the clock line stays low"}, &Faults::dataLow, BoardLines::Clock},
    {{"din-stuck-high", "the data line to the chip stays high"},
     &Faults::dataHigh,
     BoardLines::Din},
    {{"din-stuck-low", "the data line to the chip stays low"}, &Faults::dataLow, BoardLines::Din},
    {{"reset-stuck-high", "the reset line stays high: no hardware reset"},
     &Faults::dataHigh,
     BoardLines::Reset},
    {{"reset-stuck-low", "the reset line stays low: the chip stays in reset"},
     &Faults::dataLow,
     BoardLines::Reset},
    {{"dout-stuck-high", "the data line from the chip stays high: all bits read 1"},
     &Faults::statusHigh,
     BoardLines::Dout},
    {{"dout-stuck-low", "the data line from the chip stays low: all bits read 0"},
     &Faults::statusLow,
     BoardLines::Dout},
    {{"rdy-stuck-high", "the data-ready line stays high: no result is announced"},
     &Faults::statusHigh,
     BoardLines::NotReady},
    {{"rdy-stuck-low", "the data-ready line stays low: no wait for a result"},
     &Faults::statusLow,
     BoardLines::NotReady},
    {{"no-data-ready", "data-ready never comes"}, &Faults::statusHigh, BoardLines::NotReady},
};

struct NumberedFault {
    FaultDescription description;
    std::int64_t Faults::*number;
    std::int64_t min;

    /// The name without its "N".
    constexpr std::string_view Prefix() const {
        return description.name.substr(0, description.name.size() - 1);
    }
};

constexpr NumberedFault numberedFaults[] = {
    {{"board-gone=N", "the board is gone after N port accesses (0: from the start)"},
     &Faults::goneAfter,
     0},
    {{"bit-flip=N", "every Nth bit read from the chip is inverted"}, &Faults::flipEvery, 1},
};

constexpr auto descriptions = [] {
    std::array<FaultDescription, std::size(stuckLines) + std::size(numberedFaults)> all{};
    const auto description = [](const auto& fault) { return fault.description; };
    auto* const numbered =
        std::transform(std::begin(stuckLines), std::end(stuckLines), all.begin(), description);
    std::transform(std::begin(numberedFaults), std::end(numberedFaults), numbered, description);
    return all;
}();

bool AddNumbered(std::string_view name, Faults& faults) {
    const auto* const fault =
        std::find_if(std::begin(numberedFaults), std::end(numberedFaults),
                     [name](const NumberedFault& f) { return name.starts_with(f.Prefix()); });
    if (fault == std::end(numberedFaults)) {
        return false;
    }
    const std::optional<std::int64_t> number = DecimalNumber(name.substr(fault->Prefix().size()));
    if (!number || *number < fault->min) {
        return false;
    }
    faults.*fault->number = *number;
    faults.names.emplace_back(name);
    return true;
}

}  // namespace

std::span<const FaultDescription> KnownFaults() {
    return descriptions;
}

bool AddFault(std::string_view name, Faults& faults) {
    const auto* const stuck =
        std::find_if(std::begin(stuckLines), std::end(stuckLines),
                     [name](const StuckLine& s) { return s.description.name == name; });
    if (stuck == std::end(stuckLines)) {
        return AddNumbered(name, faults);
    }
    faults.names.emplace_back(name);
    faults.*stuck->mask = static_cast<std::int16_t>(faults.*stuck->mask | stuck->line);
    return true;
}

FaultyPort::FaultyPort(std::unique_ptr<ParallelPort> port, const Faults& faults)
    : WrappedPort(std::move(port)), faults_(faults) {
    ParallelPortInfo info;
    if (GetParallelPortInfo(1, info) != 0) {
        base_ = static_cast<std::int16_t>(info.address);
    }
}

void FaultyPort::OutByte(std::int16_t address, std::int16_t value) {
    if (BoardGone()) {
        return;
    }
    if (address == base_ + BoardLines::DataRegister) {
        clockLow_ = (value & BoardLines::Clock) == 0;
        value = static_cast<std::int16_t>((value | faults_.dataHigh) & ~faults_.dataLow);
    }
    Inner().OutByte(address, value);
}

std::int16_t FaultyPort::InByte(std::int16_t address) {
    if (BoardGone()) {
        return BoardLines::Undriven;
    }
    const std::int16_t value = Inner().InByte(address);
    return address == base_ + BoardLines::StatusRegister ? StatusThroughFaults(value) : value;
}

/// The clock is low while a bit is read and high while data-ready is polled.
std::int16_t FaultyPort::StatusThroughFaults(std::int16_t status) {
    if (clockLow_ && ++bitsClocked_ % faults_.flipEvery == 0) {
        status = static_cast<std::int16_t>(status ^ BoardLines::Dout);
    }
    return static_cast<std::int16_t>((status | faults_.statusHigh) & ~faults_.statusLow);
}

}  // namespace vx3260
