// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

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

}  // namespace vx3260
