// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "app/ApplicationState.h"
#include "app/MessageBoxes.h"
#include "app/OperatingSystem.h"
#include "link/ParallelPort.h"

namespace vx3260 {

/// What every form and command works with. All references outlive it.
struct Services {
    ParallelPort& port;
    MessageBoxes& messages;
    OperatingSystem& system;
    ApplicationState& state;
    std::string boardLabel{};           ///< shown where readings come from; empty for a real board
    std::vector<std::string> faults{};  ///< names of those that the simulated board has
};

}  // namespace vx3260
