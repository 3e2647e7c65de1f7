// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Calibration.h"

#include "link/DataReady.h"
#include "link/RegisterFields.h"

namespace vx3260 {

std::int32_t StartCalibration(Register& modeRegister, std::int32_t mode) {
    const std::int32_t before = modeRegister.ReadValue();
    modeRegister.WriteValue(RegisterMap::OperatingMode.Insert(before, mode));
    return before;
}

bool WaitForCalibration(ParallelPort& parallelPort, std::int16_t port) {
    const bool ended = WaitForReady(parallelPort, port, CalibrationPollLimit);
    if (!ended) {
        parallelPort.Answers().TimedOut();
    }
    return ended;
}

}  // namespace vx3260
