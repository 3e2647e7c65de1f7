// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/ReadData.h"

#include "link/Serial.h"

namespace vx3260 {

std::int32_t ReadData::Read() {
    SerialWrite(parallelPort_, ReadAddress, portAddress_, 8);
    return SerialReadWhenReady(parallelPort_, WordLength, portAddress_);
}

}  // namespace vx3260
