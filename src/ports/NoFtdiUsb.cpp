// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/FtdiUsb.h"

namespace vx3260 {

std::unique_ptr<PinExchange> FtdiUsb() {
    return nullptr;
}

}  // namespace vx3260
