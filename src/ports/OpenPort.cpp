#include "ports/OpenPort.h"

#include "ports/MissingPort.h"
#include "ports/SimulatedPort.h"

namespace vx3260 {
namespace {

OpenedPort OpenUnfaulted(const PortChoice& choice) {
    if (choice.simulated) {
        return {std::make_unique<SimulatedPort>(), "Simulated board"};
    }
    return {std::make_unique<MissingPort>(), {}};
}

}  // namespace

OpenedPort OpenPort(const PortChoice& choice) {
    OpenedPort opened = OpenUnfaulted(choice);
    if (choice.faults != Faults{}) {
        opened.port = std::make_unique<FaultyPort>(std::move(opened.port), choice.faults);
    }
    return opened;
}

}  // namespace vx3260
