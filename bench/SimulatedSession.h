// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

#include "app/Services.h"
#include "app/StartUp.h"
#include "platform/HostSystem.h"
#include "ports/SimulatedPort.h"

namespace vx3260::bench {

/// A message means that something did not work, and then its time means nothing.
class NoMessages final : public MessageBoxes {
  public:
    MessageAnswer Show(const Message& message) override { throw std::runtime_error(message.text); }
};

/// The simulated board with everything that commands and forms are handed, after start-up.
struct SimulatedSession {
    SimulatedSession() { StartUp(services); }

    SimulatedPort port;
    NoMessages messages;
    HostSystem system{0, nullptr};
    ApplicationState state;
    Services services{port, messages, system, state};
};

}  // namespace vx3260::bench
