// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/ReadData.h"

#include "link/Serial.h"

namespace vx3260 {

std::int32_t ReadData::Read() {
    SerialWrite(parallelPort_, ReadAddress, portAddress_, 8);
    const std::int32_t code = SerialReadWhenReady(parallelPort_, WordLength, portAddress_);
    if (code == ReadTimeout) {
        parallelPort_.Answers().TimedOut();
    } else {
        parallelPort_.Answers().Read(ReadAddress, WordLength, code);
    }
    return code;
}

}  // namespace vx3260
