// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/StuckReadyLine.h"

#include <string>

#include "acquisition/ReadyLine.h"
#include "cli/board/BoardRegisters.h"
#include "link/RegisterLookup.h"
#include "options/ExitCodes.h"

namespace vx3260 {
namespace {

[[noreturn]] void RefuseStuckLine(const Services& services, const std::string& contradiction) {
    throw CommandError(ExitCode::NoAnswer, "the data-ready line is stuck low: " + contradiction +
                                               ". " + CheckReadyLineAdvice(services.port));
}

}  // namespace

void CheckReadyLine(Services& services) {
    if (ReadyLineIsStuck(services)) {
        RefuseStuckLine(services, "it announces a result while the status register shows none");
    }
}

void CheckCalibrationEnded(Services& services) {
    const auto& status = RegisterMap::DescriptionOf(RegisterMap::Status);
    if ((ReadContents(services, RegisterMap::Status) &
         RegisterMap::FieldNamed(status, "cal").mask) != 0) {
        RefuseStuckLine(services,
                        "it announces the end of a calibration that goes on, as the status "
                        "register shows");
    }
}

}  // namespace vx3260
