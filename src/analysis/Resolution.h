// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "analysis/ConversionConditions.h"
#include "analysis/NoiseStatistics.h"

namespace vx3260 {

/// How much peak-to-peak noise is expected of Gaussian noise, in sigmas: 99.9 % of all codes are
/// within.
inline constexpr double PeakToPeakSigmas = 6.6;

/// A resolution in bits; only a lower bound where the block shows no noise.
struct ResolutionBits {
    double bits;
    bool isLowerBound;
};

/// The noise of a block in the terms of converter data sheets, in double precision throughout.
struct Resolution {
    std::size_t readings;      ///< N
    double rmsNoise;           ///< codes; standard deviation sigma with the divisor N - 1
    double standardError;      ///< codes; of the mean: sigma / sqrt(N)
    double peakToPeak;         ///< codes; estimated as PeakToPeakSigmas x sigma
    ResolutionBits effective;  ///< log2(2^n / sigma), n the width of a code
    ResolutionBits noiseFree;  ///< log2(2^n / (largest - smallest code))
};

/// `span` is the largest minus the smallest code, `bits` the width of a code.
Resolution ComputeResolution(std::size_t readings, double sigma, double span, int bits);

/// One row of the frame "Resolution".
struct ResolutionRow {
    std::string_view caption;
    std::string_view label;  ///< name of the label that shows the figure
    std::string_view
        voltsLabel;  ///< name of the one that shows it in volts; empty if there is none
};

inline constexpr std::string_view ResolutionFrame = "Resolution";

inline constexpr std::array ResolutionRows{
    ResolutionRow{"Readings N", "ReadingsLabel", ""},
    ResolutionRow{"RMS Noise (divisor N - 1)", "ExactRMSLabelLSB", "ExactRMSLabel"},
    ResolutionRow{"Std. Error of the Mean", "StdErrorLabelLSB", "StdErrorLabel"},
    ResolutionRow{"Est. Pk to Pk (6.6 sigma)", "EstPkPkLabelLSB", "EstPkPkLabel"},
    ResolutionRow{"Effective Resolution", "EffectiveLabel", ""},
    ResolutionRow{"Noise-Free Resolution", "NoiseFreeLabel", ""},
};

struct ResolutionText {
    std::string figure;
    std::string volts;  ///< empty where the row has none
};

/// The rows' texts, in the order of ResolutionRows.
using ResolutionTexts = std::array<ResolutionText, ResolutionRows.size()>;

ResolutionTexts TextsOf(const Resolution& resolution, double lsbVolts);

}  // namespace vx3260
