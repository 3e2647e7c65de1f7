// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Services.h"

namespace vx3260 {

/// Throws CommandError when the data-ready line announces results that the status register does
/// not show: the line is stuck low, and what is read are not results. Accepts a chip with a pending
/// result, which is read and discarded.
void CheckReadyLine(Services& services);

/// The same for a calibration whose end the line has announced.
void CheckCalibrationEnded(Services& services);

}  // namespace vx3260
