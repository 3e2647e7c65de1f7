// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/TracePort.h"

#include <array>
#include <iostream>
#include <utility>

#include "link/BoardLines.h"
#include "numbers/FileErrors.h"

namespace vx3260 {
namespace {

constexpr std::int16_t tracedOutputs = BoardLines::Clock | BoardLines::Din | BoardLines::Reset;
constexpr std::int16_t tracedInputs = BoardLines::Dout | BoardLines::NotReady;

constexpr std::size_t variableCount = 6;

/// The clock rests high: if it started low or unknown, serial decoders would see an extra edge.
const std::array<VcdVariable, variableCount>& Variables() {
    static const std::array<VcdVariable, variableCount> variables{{
        {"SCLK", VcdType::Wire, "1"},
        {"DIN", VcdType::Wire, "0"},
        {"RESET", VcdType::Wire, "1"},
        {"DOUT", VcdType::Wire, "x"},
        {"RDY", VcdType::Wire, "x"},
        {"access", VcdType::Text, ""},
    }};
    return variables;
}

std::string LevelOf(std::int16_t lines, std::int16_t line) {
    return (lines & line) != 0 ? "1" : "0";
}

std::string LevelOf(const std::optional<std::int16_t>& lines, std::int16_t line) {
    return lines ? LevelOf(*lines, line) : "x";
}

}  // namespace

TracePort::TracePort(std::unique_ptr<ParallelPort> port, const std::string& path,
                     const std::int16_t& portAddress)
    : WrappedPort(std::move(port)),
      start_(Now()),
      portAddress_(portAddress),
      vcd_(std::in_place, path, "vx3260", Variables()),
      outputs_(BoardLines::Idle & tracedOutputs) {}

TracePort::~TracePort() {
    Trace([this](VcdWriter& vcd) { vcd.ExtendTo(SinceStart()); });
}

void TracePort::OutByte(std::int16_t address, std::int16_t value) {
    Inner().OutByte(address, value);
    TraceWrite(address, value);
}

std::int16_t TracePort::InByte(std::int16_t address) {
    const std::int16_t value = Inner().InByte(address);
    TraceRead(address, value);
    return value;
}

/// A port that makes the accesses one after the other gets them here: each has its own time.
void TracePort::Transfer(std::span<PortTransfer> accesses) {
    if (!TransfersAtOnce()) {
        ParallelPort::Transfer(accesses);
        return;
    }
    const std::chrono::nanoseconds begin = SinceStart();
    Inner().Transfer(accesses);
    const std::chrono::nanoseconds duration = SinceStart() - begin;
    const auto count = static_cast<std::int64_t>(accesses.size());
    for (std::int64_t i = 0; i < count; ++i) {
        const PortTransfer& access = accesses[static_cast<std::size_t>(i)];
        stepTime_ = begin + duration * (i + 1) / count;
        if (access.write) {
            TraceWrite(access.address, access.value);
        } else {
            TraceRead(access.address, access.value);
        }
    }
    stepTime_.reset();
}

bool TracePort::WaitForLow(std::int16_t address, std::int16_t mask, std::int32_t polls) {
    if (!WaitsWithoutReading()) {
        return ParallelPort::WaitForLow(address, mask, polls);
    }
    const bool low = Inner().WaitForLow(address, mask, polls);
    InByte(address);
    return low;
}

void TracePort::TraceWrite(std::int16_t address, std::int16_t value) {
    const auto outputs = static_cast<std::int16_t>(value & tracedOutputs);
    if (IsRegister(address, BoardLines::DataRegister) && outputs != outputs_) {
        outputs_ = outputs;
        TraceStep();
    }
}

void TracePort::TraceRead(std::int16_t address, std::int16_t value) {
    const auto inputs = static_cast<std::int16_t>(value & tracedInputs);
    if (IsRegister(address, BoardLines::StatusRegister) && inputs != inputs_) {
        inputs_ = inputs;
        TraceStep();
    }
}

bool TracePort::IsRegister(std::int16_t address, std::int16_t offset) const {
    return portAddress_ != 0 && address == portAddress_ + offset;
}

void TracePort::TraceStep() {
    decoder_.Step(outputs_, (inputs_.value_or(0) & BoardLines::Dout) != 0);
    Trace([this](VcdWriter& vcd) {
        vcd.Write(
            stepTime_.value_or(SinceStart()),
            std::array{LevelOf(outputs_, BoardLines::Clock), LevelOf(outputs_, BoardLines::Din),
                       LevelOf(outputs_, BoardLines::Reset), LevelOf(inputs_, BoardLines::Dout),
                       LevelOf(inputs_, BoardLines::NotReady), decoder_.Text()});
    });
}

void TracePort::Trace(const std::function<void(VcdWriter&)>& write) {
    if (!vcd_) {
        return;
    }
    try {
        write(*vcd_);
    } catch (const FileAccessError& error) {
        std::cerr << "The trace ends here: " << error.what() << std::endl;
        vcd_.reset();
    }
}

}  // namespace vx3260
