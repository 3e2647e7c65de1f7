#include "cli/BoardSession.h"

#include "app/StartUp.h"
#include "cli/ExitCodes.h"

namespace vx3260 {

BoardSession::BoardSession(const CommandContext& context)
    : opened_(OpenPort(context.portChoice)),
      messages_(context.streams.err),
      services_{*opened_.port, messages_, context.system, state_, opened_.badge} {
    if (!services_.boardBadge.empty()) {
        context.streams.err << services_.boardBadge << std::endl;
    }
    StartUp(services_);
}

void BoardSession::RequirePort() const {
    if (state_.PortAddress == 0) {
        throw CommandError(ExitCode::NoAnswer,
                           "no printer port to reach a board through; --simulated works on the "
                           "simulated board");
    }
}

}  // namespace vx3260
