// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

namespace vx3260 {

/// Whether a board has answered the program's accesses at a port. The chip gives no acknowledgement
/// and a port without a board reads levels that are all equal, so this goes by what the accesses
/// meet anyway; it makes none of its own.
class ChipAnswers {
  public:
    enum class Answer {
        Unknown,  ///< nothing was read that only a board, or only none, can give
        Given,    ///< a word of unequal bits came back
        Missing   ///< a result timed out, or a word of equal bits came back where another must
    };

    Answer Last() const { return last_; }

    /// Called when the accesses go to another address.
    void Forget();

    /// Called after a register was written. The bytes are whole communications bytes.
    void Wrote(std::int16_t writeByte, std::int16_t bits, std::int32_t value);

    /// Called after a register or a result was read.
    void Read(std::int16_t readByte, std::int16_t bits, std::int32_t value);

    /// Called after a wait for data-ready came to its limit.
    void TimedOut();

  private:
    struct Write {
        std::int16_t address;
        std::int32_t value;
    };

    Answer last_ = Answer::Unknown;
    std::optional<Write> lastWrite_;  ///< without a read since
};

}  // namespace vx3260
