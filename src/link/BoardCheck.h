// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"

namespace vx3260 {

/// What the port's lines show about the board.
enum class BoardVerdict {
    Answers,         ///< what is written reads back
    NoAnswer,        ///< both lines from the board stay high, as without a board
    StuckHigh,       ///< all bits read 1, though data-ready comes: DOUT is stuck
    StuckLow,        ///< all bits read 0
    AnswersWrongly,  ///< something answers, but not what was written
};

struct BoardCheck {
    BoardVerdict verdict;
    std::int32_t written = 0;   ///< of a wrong answer: what the aux ADC control register was given
    std::int32_t readBack = 0;  ///< and what it gave
    bool putBack = true;        ///< whether that register was restored to its former contents
};

/// Whether all bits of the mode, control and filter registers read as `bit`, as they do through a
/// dead line. No valid settings do that to all four. Stops at the first register that differs.
bool AllBitsRead(ParallelPort& parallelPort, const std::int16_t& portAddress, int bit);

/// Checks whether a board answers. Reads registers; if they differ from those of a dead line,
/// writes patterns to the aux ADC control register, with the converter disabled, and restores it: a
/// pending result is lost. If all bits read 1, waits for data-ready as a reading does.
BoardCheck CheckBoard(ParallelPort& parallelPort, const std::int16_t& portAddress);

}  // namespace vx3260
