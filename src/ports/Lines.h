// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "link/BoardLines.h"

namespace vx3260 {

/// What a line is for. The board's input that a printer port holds high can be tied high instead of
/// being driven by Held.
enum class LineRole : unsigned { Sclk, Din, Reset, Dout, Rdy, Held };

struct LineRoleTraits {
    LineRole role;
    std::string_view name;    ///< as the choice of a port has it
    std::string_view signal;  ///< as messages have it
    std::int16_t mask;  ///< in the data register of an output, in the status register of an input
    bool output;
};

inline constexpr std::array LineRoles{
    LineRoleTraits{LineRole::Sclk, "sclk", "SCLK", BoardLines::Clock, true},
    LineRoleTraits{LineRole::Din, "din", "DIN", BoardLines::Din, true},
    LineRoleTraits{LineRole::Reset, "reset", "RESET", BoardLines::Reset, true},
    LineRoleTraits{LineRole::Dout, "dout", "DOUT", BoardLines::Dout, false},
    LineRoleTraits{LineRole::Rdy, "rdy", "RDY", BoardLines::NotReady, false},
    LineRoleTraits{LineRole::Held, "held", "held-high line", BoardLines::HeldHigh, true},
};

/// The index of a role in LineRoles, and its bit in LineLevels.
constexpr std::size_t IndexOf(LineRole role) {
    return static_cast<std::size_t>(role);
}

/// A set bit for each line that is high, by LevelBit.
using LineLevels = unsigned;

constexpr LineLevels LevelBit(LineRole role) {
    return 1U << IndexOf(role);
}

/// The names of the lines by IndexOf(role); empty for a line that is not used.
using LineNames = std::array<std::string, LineRoles.size()>;

/// One step of an exchange: outputs that are set, or inputs that are read.
struct LineStep {
    bool write;
    LineLevels levels;
};

/// The lines of some chip that the board is wired to.
class Lines {
  public:
    virtual ~Lines() = default;
    Lines(const Lines&) = delete;
    Lines(Lines&&) = delete;
    Lines& operator=(const Lines&) = delete;
    Lines& operator=(Lines&&) = delete;

    /// Takes the lines, with these levels on the outputs. False on failure. The others are called
    /// only after a success.
    virtual bool Claim(LineLevels outputs) = 0;

    /// Sets the outputs of `changed`. Failures show in Failure alone.
    virtual void Set(LineLevels outputs, LineLevels changed) = 0;

    /// The levels of the inputs; high where they cannot be read.
    virtual LineLevels Get() = 0;

    /// Waits until RDY is low, for this long at most; false if it was not.
    virtual bool WaitForReady(std::chrono::nanoseconds limit) = 0;

    /// Whether many steps are made at once, by Exchange, because one by one they are slow.
    virtual bool ExchangesAtOnce() const { return false; }

    /// Makes the steps in their order. Called only where ExchangesAtOnce.
    virtual void Exchange(std::span<LineStep> /*steps*/) {}

    /// The chip, for a person: "gpiochip0".
    virtual std::string ChipName() const = 0;

    /// Why the last operation that failed did so, and the remedy; empty if none failed.
    virtual std::string Failure() const = 0;

  protected:
    Lines() = default;
};

}  // namespace vx3260
