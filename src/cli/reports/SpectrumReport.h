// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analysis/BlockWarnings.h"
#include "analysis/ConversionConditions.h"
#include "analysis/Spectrum.h"
#include "link/BlockConditions.h"

namespace vx3260 {

/// The spectrum of a data file.
struct FileSpectrum {
    std::string file;
    ConversionConditions conditions;
    std::size_t count;  ///< codes of the file
    Trend trend;
    Spectrum spectrum;
    std::vector<BlockWarning> warnings{};
    std::optional<BlockConditions> reading{};  ///< how it was read; empty where unknown
};

/// What was averaged, the integrated noise, the mains, and a line for each octave of frequencies
/// with its mean density and its noise.
std::string SpectrumText(const FileSpectrum& analysed);

/// The columns of SpectrumCsv.
std::string SpectrumCsv(const FileSpectrum& analysed);

/// All figures in full precision as one JSON object; a figure that is not defined is null.
std::string SpectrumJson(const FileSpectrum& analysed);

}  // namespace vx3260
