// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "link/ParallelPort.h"

namespace vx3260 {

/// What stands behind the printer port, as far as its lines tell.
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
    bool putBack = true;        ///< whether that register holds again what it held before
};

/// Whether the mode, control and filter registers all read as `bit` repeated, as they do through a
/// dead line. No settings of a chip do that to all four. Ends at the first that reads otherwise.
bool AllBitsRead(ParallelPort& parallelPort, const std::int16_t& portAddress, int bit);

/// Finds out whether a board answers. Reads registers; only where these look alive writes the aux
/// ADC control register, with the converter disabled, and puts it back: a result that waits is
/// lost. Where all bits read 1, waits for data-ready as a reading does.
BoardCheck CheckBoard(ParallelPort& parallelPort, const std::int16_t& portAddress);

}  // namespace vx3260
