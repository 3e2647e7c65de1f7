// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analysis/NoiseAnalysis.h"
#include "link/BlockConditions.h"

namespace vx3260 {

/// A block's figures, and how it was read.
struct NoiseReportContents {
    NoiseAnalysis analysis;
    std::optional<BlockConditions> reading{};  ///< empty where unknown
    std::string_view board{};                  ///< label of the board that was read now
};

/// The figures as the noise forms show them: a heading for each frame, a line for each caption.
std::string NoiseText(const NoiseReportContents& contents);

/// The same texts by label name, the figures in full precision in volts and codes, and how the
/// block was read, as one JSON object.
std::string NoiseJson(const NoiseReportContents& contents);

}  // namespace vx3260
