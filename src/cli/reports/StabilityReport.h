// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analysis/BlockWarnings.h"
#include "analysis/ConversionConditions.h"
#include "analysis/Stability.h"
#include "link/BlockConditions.h"

namespace vx3260 {

/// The Allan deviation of a data file.
struct FileStability {
    std::string file;
    ConversionConditions conditions;
    std::size_t count;  ///< codes of the file
    double rate;        ///< readings per second, Hz
    std::vector<AllanPoint> points;
    std::vector<BlockWarning> warnings{};
    std::optional<BlockConditions> reading{};  ///< how it was read; empty where unknown
};

/// The time at which the deviation is smallest, and a line for each averaging time.
std::string StabilityText(const FileStability& analysed);

/// The columns of StabilityCsv.
std::string StabilityCsv(const FileStability& analysed);

/// All figures in full precision as one JSON object; a figure that is not defined is null.
std::string StabilityJson(const FileStability& analysed);

}  // namespace vx3260
