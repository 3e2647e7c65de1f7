#pragma once

#include <memory>
#include <string>

#include "link/ParallelPort.h"
#include "ports/FaultyPort.h"

namespace vx3260 {

/// Which port the user asked for.
struct PortChoice {
    bool simulated = false;
    Faults faults{};
};

struct OpenedPort {
    std::unique_ptr<ParallelPort> port;
    std::string badge;  ///< "Simulated board", or empty for a real port
};

/// The port that was chosen. Opening never fails: a port that cannot be had shows itself when it
/// is claimed.
OpenedPort OpenPort(const PortChoice& choice);

}  // namespace vx3260
