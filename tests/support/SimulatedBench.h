#pragma once

#include <memory>

#include "app/Services.h"
#include "app/StartUp.h"
#include "ports/FaultyPort.h"
#include "ports/SimulatedPort.h"
#include "support/Recorders.h"

namespace vx3260::test {

/// The simulated board with everything a form is handed, after start-up.
struct SimulatedBench {
    explicit SimulatedBench(const Faults& faults = {}) {
        auto simulated = std::make_unique<SimulatedPort>();
        board = &simulated->Board();
        port = std::make_unique<FaultyPort>(std::move(simulated), faults);
        services =
            std::make_unique<Services>(Services{*port, messages, system, state, "Simulated board"});
        StartUp(*services);
    }

    SimulatedChip& Chip() { return board->Chip(); }

    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
    SimulatedBoard* board = nullptr;
    std::unique_ptr<FaultyPort> port;
    std::unique_ptr<Services> services;
};

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
