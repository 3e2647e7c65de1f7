// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/BoardCheck.h"

#include <algorithm>
#include <optional>

#include "link/DataReady.h"
#include "link/Register.h"
#include "link/RegisterMap.h"
#include "link/Serial.h"

namespace vx3260 {
namespace {

/// Valid settings can make one of these all 0 or all 1, but never all four.
constexpr RegisterMap::RegisterAccess checkedRegisters[] = {
    RegisterMap::Mode, RegisterMap::MainControl, RegisterMap::AuxControl, RegisterMap::Filter};
constexpr std::int32_t allOnes = 0xFF;

/// Each bit of the channel, polarity and reference fields once 0 and once 1; the converter is off
/// and the channel one that connects nothing, or an input.
constexpr std::int32_t patterns[] = {0x51, 0x28};

/// Repeated, because a loose contact does not corrupt every word.
constexpr int rounds = 16;

class Checker {
  public:
    Checker(ParallelPort& parallelPort, const std::int16_t& portAddress)
        : parallelPort_(parallelPort),
          portAddress_(portAddress),
          auxControl_(parallelPort, portAddress, RegisterMap::AuxControl) {}

    BoardCheck Check() {
        if (const auto dead = DeadLine()) {
            return {*dead};
        }
        const BoardCheck check = TryPatterns();
        // The board may have gone meanwhile.
        const bool doubtful = check.verdict == BoardVerdict::AnswersWrongly || !check.putBack;
        const auto dead = doubtful ? DeadLine() : std::nullopt;
        return dead ? BoardCheck{*dead} : check;
    }

  private:
    std::optional<BoardVerdict> DeadLine() {
        if (AllBitsRead(parallelPort_, portAddress_, 1)) {
            return WaitForReady(parallelPort_, portAddress_, PollLimit) ? BoardVerdict::StuckHigh
                                                                        : BoardVerdict::NoAnswer;
        }
        if (AllBitsRead(parallelPort_, portAddress_, 0)) {
            return BoardVerdict::StuckLow;
        }
        return std::nullopt;
    }

    BoardCheck TryPatterns() {
        const std::int32_t before = auxControl_.ReadValue();
        BoardCheck check{BoardVerdict::Answers};
        for (int round = 0; round < rounds && check.verdict == BoardVerdict::Answers; ++round) {
            check = TryPatternsOnce();
        }
        check.putBack = WriteAndRead(before) == before;
        return check;
    }

    BoardCheck TryPatternsOnce() {
        for (const std::int32_t pattern : patterns) {
            const std::int32_t readBack = WriteAndRead(pattern);
            if (readBack != pattern) {
                return {BoardVerdict::AnswersWrongly, pattern, readBack};
            }
        }
        return {BoardVerdict::Answers};
    }

    std::int32_t WriteAndRead(std::int32_t value) {
        auxControl_.WriteValue(value);
        return auxControl_.ReadValue();
    }

    ParallelPort& parallelPort_;
    const std::int16_t& portAddress_;
    Register auxControl_;
};

}  // namespace

bool AllBitsRead(ParallelPort& parallelPort, const std::int16_t& portAddress, int bit) {
    const std::int32_t value = bit * allOnes;
    return std::all_of(std::begin(checkedRegisters), std::end(checkedRegisters),
                       [&](const RegisterMap::RegisterAccess& access) {
                           return ReadRegister(parallelPort, portAddress, access) == value;
                       });
}

BoardCheck CheckBoard(ParallelPort& parallelPort, const std::int16_t& portAddress) {
    return Checker(parallelPort, portAddress).Check();
}

}  // namespace vx3260
