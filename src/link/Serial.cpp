// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Serial.h"

#include "link/BoardLines.h"
#include "link/DataReady.h"
#include "link/PortAccess.h"
#include "numbers/Conversions.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

/// A word is carried in 31 bits and a sign.
void CheckBitCount(std::int16_t bits) {
    constexpr std::int16_t maxBits = 31;
    if (bits > maxBits) {
        throw OverflowError();
    }
}

/// The last of the reads ends the wait whatever it shows.
bool WaitForResult(ParallelPort& parallelPort, std::int16_t port) {
    if (WaitForReady(parallelPort, port, PollLimit - 1)) {
        return true;
    }
    IsReady(parallelPort, port);
    return false;
}

/// The chip changes its data line on the falling edge, so the line is read while the clock is low.
std::int32_t ClockIn(ParallelPort& parallelPort, std::int16_t bits, std::int16_t port) {
    const std::int16_t status = ToInt16(port + BoardLines::StatusRegister);
    std::int32_t word = 0;
    for (int bit = bits - 1; bit >= 0; --bit) {
        PortOut(parallelPort, port, BoardLines::ClockLowZero);
        const std::int16_t lines = PortIn(parallelPort, status);
        PortOut(parallelPort, port, BoardLines::Idle);
        if ((lines & BoardLines::Dout) != 0) {
            word |= std::int32_t{1} << bit;
        }
    }
    return word;
}

}  // namespace

void SerialWrite(ParallelPort& parallelPort, std::int32_t value, std::int16_t port,
                 std::int16_t bits) {
    CheckBitCount(bits);
    for (int bit = bits - 1; bit >= 0; --bit) {
        const bool one = (value & (std::int32_t{1} << bit)) != 0;
        PortOut(parallelPort, port, BoardLines::Idle);
        PortOut(parallelPort, port, one ? BoardLines::ClockLowOne : BoardLines::ClockLowZero);
        PortOut(parallelPort, port, one ? BoardLines::ClockHighOne : BoardLines::Idle);
    }
    PortOut(parallelPort, port, BoardLines::Idle);
}

std::int32_t SerialRead(ParallelPort& parallelPort, std::int16_t bits, std::int16_t port) {
    CheckBitCount(bits);
    PortOut(parallelPort, port, BoardLines::Idle);
    return ClockIn(parallelPort, bits, port);
}

std::int32_t SerialReadWhenReady(ParallelPort& parallelPort, std::int16_t bits, std::int16_t port) {
    CheckBitCount(bits);
    PortOut(parallelPort, port, BoardLines::Idle);
    if (!WaitForResult(parallelPort, port)) {
        return ReadTimeout;
    }
    return ClockIn(parallelPort, bits, port);
}

}  // namespace vx3260
