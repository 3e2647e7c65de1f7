// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "link/RegisterMap.h"

namespace vx3260 {

/// What the chip's registers held at one moment, as far as the program knows it.
class RegisterSnapshot {
  public:
    /// Nothing is known.
    RegisterSnapshot();

    /// The contents, if they are known. What was unknown at that moment becomes known when the
    /// register is read later, as long as it was not written and the chip not reset in between.
    std::optional<std::int32_t> ValueOf(const RegisterMap::RegisterAccess& access) const {
        return *CellOf(access);
    }

    /// Makes the contents known, in this snapshot alone.
    void Set(const RegisterMap::RegisterAccess& access, std::int32_t value);

  protected:
    /// The contents from one write or reset to the next, shared by the record and all snapshots
    /// taken in between.
    using Cell = std::shared_ptr<std::optional<std::int32_t>>;

    /// By the registers' addresses.
    static constexpr std::size_t AddressCount = 16;

    const Cell& CellOf(const RegisterMap::RegisterAccess& access) const;
    Cell& CellOf(const RegisterMap::RegisterAccess& access);

  private:
    std::array<Cell, AddressCount> cells_;
};

/// What each register of the chip held when the program last read or wrote it. Makes no accesses of
/// its own.
class RegisterRecord : private RegisterSnapshot {
  public:
    using RegisterSnapshot::ValueOf;

    /// The contents as they are known now.
    RegisterSnapshot Snapshot() const { return *this; }

    /// Called after a register was written. The chip may have ignored the write; only a read shows.
    void Wrote(const RegisterMap::RegisterAccess& access, std::int32_t value);

    /// Called after a register was read from a board.
    void Read(const RegisterMap::RegisterAccess& access, std::int32_t value);

    /// Called when a register no longer holds what is known of it.
    void Forget(const RegisterMap::RegisterAccess& access);

    /// Called after a reset, and when the accesses go to another address.
    void Forget();

  private:
    void ForgetWhatTheModeChanges(const RegisterMap::RegisterAccess& access, std::int32_t value);
};

}  // namespace vx3260
