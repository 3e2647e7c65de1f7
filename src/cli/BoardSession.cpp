#include "cli/BoardSession.h"

#include "app/StartUp.h"
#include "cli/ExitCodes.h"

namespace vx3260 {

void BoardSession::Open() {
    if (services_) {
        return;
    }
    opened_ = OpenPort(portChoice_);
    services_.emplace(vx3260::Services{*opened_.port, messages_, system_, state_, opened_.badge});
    if (!opened_.badge.empty()) {
        err_ << opened_.badge << std::endl;
    }
    StartUp(*services_);
}

Services& BoardSession::Services() {
    Open();
    if (state_.PortAddress == 0) {
        throw CommandError(ExitCode::NoAnswer,
                           "no printer port to reach a board through; --simulated works on the "
                           "simulated board");
    }
    return *services_;
}

}  // namespace vx3260
