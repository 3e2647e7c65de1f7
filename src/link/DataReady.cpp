// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/DataReady.h"

#include "link/BoardLines.h"
#include "link/PortAccess.h"
#include "numbers/Conversions.h"

namespace vx3260 {

bool IsReady(ParallelPort& parallelPort, std::int16_t port) {
    const std::int16_t status = ToInt16(port + BoardLines::StatusRegister);
    return (PortIn(parallelPort, status) & BoardLines::NotReady) == 0;
}

bool WaitForReady(ParallelPort& parallelPort, std::int16_t port, std::int32_t maxPolls) {
    return parallelPort.WaitForLow(ToInt16(port + BoardLines::StatusRegister), BoardLines::NotReady,
                                   maxPolls);
}

}  // namespace vx3260
