// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "analysis/Histogram.h"
#include "analysis/NoiseTexts.h"
#include "link/Converter.h"

namespace vx3260 {

/// The codes of a data file, counted.
struct FileHistogram {
    std::string file;
    Converter converter;
    NormalFigures figures;
    Histogram histogram;
};

/// A heading, then a line for each bin: its first code, its count and a bar of block characters.
/// The longest bar fills the lines up to `width` characters as far as it has at least 10.
std::string HistogramText(const FileHistogram& counted, std::size_t width);

}  // namespace vx3260
