// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/ParallelPort.h"

namespace vx3260 {

void ParallelPort::Transfer(std::span<PortTransfer> accesses) {
    for (PortTransfer& access : accesses) {
        if (access.write) {
            OutByte(access.address, access.value);
        } else {
            access.value = InByte(access.address);
        }
    }
}

bool ParallelPort::WaitForLow(std::int16_t address, std::int16_t mask, std::int32_t polls) {
    for (std::int32_t poll = 0; poll < polls; ++poll) {
        if ((InByte(address) & mask) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace vx3260
