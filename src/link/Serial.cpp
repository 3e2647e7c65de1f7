// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Serial.h"

#include <vector>

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

/// The word with one more bit, of which the lines of the status register have the level.
std::int32_t WithBit(std::int32_t word, std::int16_t lines) {
    return word * 2 + ((lines & BoardLines::Dout) != 0 ? 1 : 0);
}

/// Makes the accesses of a word one by one.
class SingleAccesses {
  public:
    SingleAccesses(ParallelPort& parallelPort, std::int16_t port)
        : parallelPort_(parallelPort),
          port_(port),
          status_(ToInt16(port + BoardLines::StatusRegister)) {}

    void Write(std::int16_t pattern) { PortOut(parallelPort_, port_, pattern); }
    void ReadBit() { word_ = WithBit(word_, PortIn(parallelPort_, status_)); }

    /// Completes the accesses. Returns the bits that were read.
    std::int32_t Finish() const { return word_; }

  private:
    ParallelPort& parallelPort_;
    std::int16_t port_;
    std::int16_t status_;
    std::int32_t word_ = 0;
};

/// Collects the accesses of a word, which the port then makes in one transfer.
class CollectedAccesses {
  public:
    CollectedAccesses(ParallelPort& parallelPort, std::int16_t port)
        : parallelPort_(parallelPort),
          port_(port),
          status_(ToInt16(port + BoardLines::StatusRegister)) {}

    void Write(std::int16_t pattern) { accesses_.push_back({port_, pattern, true}); }
    void ReadBit() { accesses_.push_back({status_, 0, false}); }

    std::int32_t Finish() {
        parallelPort_.Transfer(accesses_);
        std::int32_t word = 0;
        for (const PortTransfer& access : accesses_) {
            word = access.write ? word : WithBit(word, access.value);
        }
        return word;
    }

  private:
    ParallelPort& parallelPort_;
    std::int16_t port_;
    std::int16_t status_;
    std::vector<PortTransfer> accesses_;
};

/// Calls `use` with the accesses that suit the port. There are two kinds because collecting a word
/// costs a port with cheap accesses more than twice the time.
template <typename Use>
auto WithAccesses(ParallelPort& parallelPort, std::int16_t port, Use use) {
    if (parallelPort.TransfersAtOnce()) {
        return use(CollectedAccesses(parallelPort, port));
    }
    return use(SingleAccesses(parallelPort, port));
}

template <typename Accesses>
void ClockOut(Accesses& accesses, std::int32_t value, std::int16_t bits) {
    for (int bit = bits - 1; bit >= 0; --bit) {
        const bool one = (value & (std::int32_t{1} << bit)) != 0;
        accesses.Write(BoardLines::Idle);
        accesses.Write(one ? BoardLines::ClockLowOne : BoardLines::ClockLowZero);
        accesses.Write(one ? BoardLines::ClockHighOne : BoardLines::Idle);
    }
    accesses.Write(BoardLines::Idle);
    accesses.Finish();
}

/// The chip changes its data line on the falling edge, so the line is read while the clock is low.
template <typename Accesses>
std::int32_t ClockIn(Accesses& accesses, std::int16_t bits) {
    for (std::int16_t bit = 0; bit < bits; ++bit) {
        accesses.Write(BoardLines::ClockLowZero);
        accesses.ReadBit();
        accesses.Write(BoardLines::Idle);
    }
    return accesses.Finish();
}

std::int32_t ClockInFrom(ParallelPort& parallelPort, std::int16_t port, std::int16_t bits) {
    return WithAccesses(parallelPort, port,
                        [bits](auto accesses) { return ClockIn(accesses, bits); });
}

}  // namespace

void SerialWrite(ParallelPort& parallelPort, std::int32_t value, std::int16_t port,
                 std::int16_t bits) {
    CheckBitCount(bits);
    WithAccesses(parallelPort, port,
                 [value, bits](auto accesses) { ClockOut(accesses, value, bits); });
}

std::int32_t SerialRead(ParallelPort& parallelPort, std::int16_t bits, std::int16_t port) {
    CheckBitCount(bits);
    PortOut(parallelPort, port, BoardLines::Idle);
    return ClockInFrom(parallelPort, port, bits);
}

std::int32_t SerialReadWhenReady(ParallelPort& parallelPort, std::int16_t bits, std::int16_t port) {
    CheckBitCount(bits);
    PortOut(parallelPort, port, BoardLines::Idle);
    if (!WaitForResult(parallelPort, port)) {
        return ReadTimeout;
    }
    return ClockInFrom(parallelPort, port, bits);
}

}  // namespace vx3260
