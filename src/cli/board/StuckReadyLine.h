// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Services.h"

namespace vx3260 {

/// Throws CommandError when the data-ready line announces results that the status register does
/// not know of: the line is stuck low, and what is read then are no results. Says nothing of a
/// chip that has a result; one that was ready before is taken from it and dropped.
void CheckReadyLine(Services& services);

/// The same for a calibration whose end the line has announced.
void CheckCalibrationEnded(Services& services);

}  // namespace vx3260
