// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "analysis/BlockWarnings.h"
#include "analysis/NoiseAnalysis.h"

namespace vx3260 {

/// The figures as the noise forms show them: a heading for each frame, a line for each caption.
std::string NoiseText(const NoiseAnalysis& analysis);

/// The same texts by label name, and the figures in full precision in volts and codes, as one JSON
/// object; a figure that is not defined is null. `board` is the label of the board they come from;
/// null when empty.
std::string NoiseJson(const NoiseAnalysis& analysis, std::span<const BlockWarning> warnings,
                      std::string_view board);

}  // namespace vx3260
