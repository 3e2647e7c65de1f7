// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Calibration.h"

#include "link/BoardLines.h"
#include "link/PortAccess.h"
#include "numbers/Conversions.h"

namespace vx3260 {

bool WaitForCalibration(ParallelPort& parallelPort, std::int16_t port) {
    const std::int16_t status = ToInt16(port + BoardLines::StatusRegister);
    for (std::int32_t polls = 0; polls < CalibrationPollLimit; ++polls) {
        if ((PortIn(parallelPort, status) & BoardLines::NotReady) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace vx3260
