// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Reset.h"

#include "link/BoardLines.h"
#include "link/PortAccess.h"
#include "link/Register.h"
#include "link/RegisterMap.h"

namespace vx3260 {
namespace {

constexpr std::int16_t resetLow = BoardLines::Idle & ~BoardLines::Reset;
constexpr std::int16_t clockHighOneResetLow = BoardLines::ClockHighOne & ~BoardLines::Reset;

}  // namespace

void HardwareReset(ParallelPort& parallelPort, std::int16_t port) {
    PortOut(parallelPort, port, resetLow);
    PortOut(parallelPort, port, BoardLines::Idle);
    parallelPort.Registers().Forget();
}

void SoftwareReset(ParallelPort& parallelPort, std::int16_t port) {
    for (int i = 0; i < OnesThatReset; ++i) {
        PortOut(parallelPort, port, BoardLines::ClockLowOne);
        PortOut(parallelPort, port, clockHighOneResetLow);
    }
    PortOut(parallelPort, port, BoardLines::Idle);
    parallelPort.Registers().Forget();
    for (const RegisterMap::RegisterAccess& test : {RegisterMap::Test1, RegisterMap::Test2}) {
        Register(parallelPort, port, test).WriteValue(0);
    }
}

}  // namespace vx3260
