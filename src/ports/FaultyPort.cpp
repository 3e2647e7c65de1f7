// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/FaultyPort.h"

#include <algorithm>
#include <array>
#include <optional>

#include "link/BoardLines.h"
#include "numbers/WholeNumber.h"

namespace vx3260 {
namespace {

struct StuckLine {
    std::string_view name;
    std::int16_t Faults::*mask;
    std::int16_t line;
};

constexpr StuckLine stuckLines[] = {
    {"sclk-stuck-high", &Faults::dataHigh, BoardLines::Clock},
    {"sclk-stuck-low", &Faults::dataLow, BoardLines::Clock},
    {"din-stuck-high", &Faults::dataHigh, BoardLines::Din},
    {"din-stuck-low", &Faults::dataLow, BoardLines::Din},
    {"reset-stuck-high", &Faults::dataHigh, BoardLines::Reset},
    {"reset-stuck-low", &Faults::dataLow, BoardLines::Reset},
    {"dout-stuck-high", &Faults::statusHigh, BoardLines::Dout},
    {"dout-stuck-low", &Faults::statusLow, BoardLines::Dout},
    {"rdy-stuck-high", &Faults::statusHigh, BoardLines::NotReady},
    {"rdy-stuck-low", &Faults::statusLow, BoardLines::NotReady},
    {"no-data-ready", &Faults::statusHigh, BoardLines::NotReady},
};

struct NumberedFault {
    std::string_view prefix;
    std::int64_t Faults::*number;
    std::int64_t min;
};

constexpr NumberedFault numberedFaults[] = {
    {"board-gone=", &Faults::goneAfter, 0},
    {"bit-flip=", &Faults::flipEvery, 1},
};

constexpr std::array descriptions{
    FaultDescription{"sclk-stuck-high", "the clock line stays high"},
    FaultDescription{"sclk-stuck-low", "the clock line stays low"},
    FaultDescription{"din-stuck-high", "the data line to the chip stays high"},
    FaultDescription{"din-stuck-low", "the data line to the chip stays low"},
    FaultDescription{"reset-stuck-high", "the reset line stays high: no hardware reset"},
    FaultDescription{"reset-stuck-low", "the reset line stays low: the chip stays in reset"},
    FaultDescription{"dout-stuck-high", "the data line from the chip stays high: all bits read 1"},
    FaultDescription{"dout-stuck-low", "the data line from the chip stays low: all bits read 0"},
    FaultDescription{"rdy-stuck-high", "the data-ready line stays high: no result is announced"},
    FaultDescription{"rdy-stuck-low", "the data-ready line stays low: no wait for a result"},
    FaultDescription{"no-data-ready", "data-ready never comes"},
    FaultDescription{"board-gone=N", "the board is gone after N port accesses (0: from the start)"},
    FaultDescription{"bit-flip=N", "every Nth bit read from the chip is inverted"},
};

bool AddNumbered(std::string_view name, Faults& faults) {
    const auto* const fault =
        std::find_if(std::begin(numberedFaults), std::end(numberedFaults),
                     [name](const NumberedFault& f) { return name.starts_with(f.prefix); });
    if (fault == std::end(numberedFaults)) {
        return false;
    }
    const std::optional<std::int64_t> number = DecimalNumber(name.substr(fault->prefix.size()));
    if (!number || *number < fault->min) {
        return false;
    }
    faults.*fault->number = *number;
    return true;
}

}  // namespace

std::span<const FaultDescription> KnownFaults() {
    return descriptions;
}

bool AddFault(std::string_view name, Faults& faults) {
    const auto* const stuck = std::find_if(std::begin(stuckLines), std::end(stuckLines),
                                           [name](const StuckLine& s) { return s.name == name; });
    if (stuck == std::end(stuckLines)) {
        return AddNumbered(name, faults);
    }
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
