// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace vx3260 {

/// Follows the serial interface's lines and describes in words what they carry:
///
/// - "read mode" from the end of the communications byte on, "read mode = 03" from the end of the
///   word; registers have the command line's names, "main-data", "aux-data", "test1" and "test2"
///   beside them, values as many hexadecimal digits as the register has;
/// - "unknown byte FF" for a communications byte that reaches no register;
/// - "hardware reset" while RESET is low, "software reset" at the 32nd one bit in a row on DIN:
///   from either on the interface waits for a communications byte.
class AccessDecoder {
  public:
    /// The lines as they are now: a pattern of the port's data register, and DOUT.
    void Step(std::int16_t outputs, bool dout);

    /// What was carried last; empty at first.
    const std::string& Text() const { return text_; }

  private:
    void CountOnes(bool rising, bool din, bool inReset);
    void Shift(bool bit);
    void EndCommunicationsByte();
    void EndWord();
    void AwaitCommunicationsByte();

    std::string text_;
    bool clockHigh_ = true;
    int onesInARow_ = 0;
    bool inWord_ = false;  ///< the bits are a register's, not a communications byte's
    bool reading_ = false;
    std::int16_t wordLength_ = 0;
    std::int16_t bitsLeft_ = 8;
    std::int32_t shifted_ = 0;
};

}  // namespace vx3260
