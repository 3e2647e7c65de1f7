// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "link/Configuration.h"
#include "link/RegisterReading.h"

namespace vx3260 {

/// One field of a register, as the overview shows it.
struct OverviewRow {
    RegisterReading reading;
    const RegisterMap::Field& field;
    std::string value;                    ///< "2.56V"; of the filter word with its rate
    std::optional<std::string> before{};  ///< where it was another at the last reading
    std::optional<std::string> saved{};   ///< where a configuration has another

    bool IsFirst() const { return &field == &reading.description.fields.front(); }
};

/// All registers that can be read at once, in the order of their addresses. No missing board is
/// detected.
std::vector<RegisterReading> ReadAllRegisters(ParallelPort& parallelPort,
                                              const std::int16_t& portAddress);

/// A row for each field. `before` are the same registers at an earlier reading, or none; `saved` is
/// a configuration to compare with, or empty.
std::vector<OverviewRow> OverviewOf(std::span<const RegisterReading> now,
                                    std::span<const RegisterReading> before,
                                    const Configuration& saved);

/// A register's contents in binary, in groups of four: "1000 0111".
std::string BitsText(const RegisterReading& reading);

/// The rows as a table of text, with a column for saved values where `withSaved`.
std::string OverviewText(std::span<const OverviewRow> rows, bool withSaved);

}  // namespace vx3260
