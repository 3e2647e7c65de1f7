// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// The evaluation board's lines on the printer port. The only place that defines these masks.
namespace vx3260::BoardLines {

/// The port's three registers, counted from its base address.
inline constexpr std::int16_t DataRegister = 0;
inline constexpr std::int16_t StatusRegister = 1;
inline constexpr std::int16_t ControlRegister = 2;
inline constexpr std::int16_t RegisterCount = 3;

/// Outputs, in the data register.
inline constexpr std::int16_t Din = 0x01;       ///< serial data to the chip
inline constexpr std::int16_t Reset = 0x02;     ///< 0 resets the chip
inline constexpr std::int16_t Clock = 0x08;     ///< SCLK; the chip takes DIN on the rising edge
inline constexpr std::int16_t HeldHigh = 0x10;  ///< 1 in every pattern

/// Inputs, in the status register.
inline constexpr std::int16_t Dout = 0x10;      ///< serial data from the chip
inline constexpr std::int16_t NotReady = 0x40;  ///< RDY, 0 while a result is waiting

/// The value of a read when nothing drives the lines.
inline constexpr std::int16_t Undriven = 0xFF;

/// The data register's four patterns; the clock rests high with data 0.
inline constexpr std::int16_t Idle = HeldHigh | Clock | Reset;
inline constexpr std::int16_t ClockHighOne = Idle | Din;
inline constexpr std::int16_t ClockLowZero = HeldHigh | Reset;
inline constexpr std::int16_t ClockLowOne = ClockLowZero | Din;

/// What the control register keeps at start-up: bits 2, 4, 6 and 7. Clearing bit 5 makes the data
/// lines outputs.
inline constexpr std::int16_t ControlKept = 0xD4;

}  // namespace vx3260::BoardLines
