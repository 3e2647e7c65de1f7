#include "ports/OpenPort.h"

#include "ports/SimulatedPort.h"

#if defined(__linux__)
#include "ports/DirectPort.h"
#include "ports/PpdevPort.h"
#else
#include "ports/MissingPort.h"
#endif

namespace vx3260 {
namespace {

#if defined(__linux__)

std::unique_ptr<ParallelPort> OpenRealPort(const PortChoice& choice) {
    if (choice.access == PortAccess::Direct) {
        return std::make_unique<DirectPort>(choice.address, choice.device, choice.pollTime);
    }
    return std::make_unique<PpdevPort>(choice.device, choice.pollTime);
}

#else

std::unique_ptr<ParallelPort> OpenRealPort(const PortChoice& /*choice*/) {
    return std::make_unique<MissingPort>();
}

#endif

OpenedPort OpenUnfaulted(const PortChoice& choice) {
    if (choice.simulated) {
        return {std::make_unique<SimulatedPort>(), "Simulated board"};
    }
    return {OpenRealPort(choice), {}};
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
