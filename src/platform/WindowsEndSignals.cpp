// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/EndSignals.h"

namespace vx3260 {

EndSignals::EndSignals() = default;
EndSignals::~EndSignals() = default;
void EndSignals::Release() {}

}  // namespace vx3260
