// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"
#include "link/Register.h"

namespace vx3260 {

/// Status reads after which a calibration is given up.
inline constexpr std::int32_t CalibrationPollLimit = 500001;

/// Reads the mode register and writes it back with `mode`, 4 to 7, in its mode field, which starts
/// a calibration of the enabled converters. Returns what was read.
std::int32_t StartCalibration(Register& modeRegister, std::int32_t mode);

/// Polls the data-ready line, without a pause, until it shows that a calibration has ended. False
/// when CalibrationPollLimit reads did not show it.
bool WaitForCalibration(ParallelPort& parallelPort, std::int16_t port);

}  // namespace vx3260
