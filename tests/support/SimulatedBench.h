// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <stdexcept>

#include "acquisition/Reading.h"
#include "app/Services.h"
#include "app/StartUp.h"
#include "ports/AccessDecoder.h"
#include "ports/FaultyPort.h"
#include "ports/SimulatedPort.h"
#include "support/Recorders.h"

namespace vx3260::test {

/// Notes what is written to the chip's registers, from the bytes on the wires.
class WatchedPort final : public WrappedPort {
  public:
    explicit WatchedPort(std::unique_ptr<ParallelPort> inner) : WrappedPort(std::move(inner)) {}

    void OutByte(std::int16_t address, std::int16_t value) override {
        Inner().OutByte(address, value);
        if (address != dataRegister) {
            return;
        }
        const std::string before = decoder_.Text();
        decoder_.Step(value, false);
        if (decoder_.Text() != before && decoder_.Text().starts_with("write ")) {
            writes.push_back(decoder_.Text());
        }
    }
    std::int16_t InByte(std::int16_t address) override { return Inner().InByte(address); }

    std::vector<std::string> writes;  ///< such as "write mode" and then "write mode = 03"

  private:
    static constexpr std::int16_t dataRegister = 888;

    AccessDecoder decoder_;
};

/// The simulated board with everything a form is handed, after start-up.
struct SimulatedBench {
    explicit SimulatedBench(const std::string& fault = {}) {
        Faults faults;
        if (!fault.empty() && !AddFault(fault, faults)) {
            throw std::invalid_argument(fault);
        }
        auto simulated = std::make_unique<SimulatedPort>();
        board = &simulated->Board();
        port = std::make_unique<WatchedPort>(
            std::make_unique<FaultyPort>(std::move(simulated), faults));
        services =
            std::make_unique<Services>(Services{*port, messages, system, state, "Simulated board"});
        StartUp(*services);
    }

    SimulatedChip& Chip() { return board->Chip(); }
    void Fill(Converter converter, std::vector<double> codes) {
        const CodeBlock block = state.BlockOf(converter);
        block.count = static_cast<std::int16_t>(codes.size());
        block.codes = std::move(codes);
    }

    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
    SimulatedBoard* board = nullptr;
    std::unique_ptr<WatchedPort> port;
    std::unique_ptr<Services> services;
};

/// Reads a block from the board behind a port after start-up.
inline ReadingEnd ReadBlockFrom(ParallelPort& port, ApplicationState& state, Converter converter,
                                std::int16_t size, const ReadingHooks& hooks = {}) {
    ConverterReader reader(port, state.PortAddress, converter);
    reader.ReadControls();
    return ReadBlock(reader, state.BlockOf(converter), size, hooks);
}

/// The codes of the inputs that are connected at start: 10 mV, and the sensor's 298.15 mV, both
/// with the board's gain error and offset.
constexpr double mainCodeAtStart = 8388608 * (1 + 0.01 * 0.996 / 2.56 + 0.002);
constexpr double auxCodeAtStart = 65536 * (0.29815 * 0.996 / 2.5 + 0.002);

/// Addresses of the registers, as the chip knows them.
enum : unsigned {
    statusAt = 0,
    modeAt = 1,
    mainControlAt = 2,
    auxControlAt = 3,
    filterAt = 4,
    ioControlAt = 7,
    mainZeroScaleAt = 8,
    auxZeroScaleAt = 9,
    mainFullScaleAt = 10,
    auxFullScaleAt = 11,
};

}  // namespace vx3260::test
