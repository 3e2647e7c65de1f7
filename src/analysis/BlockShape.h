// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>

#include "analysis/NormalFit.h"

namespace vx3260 {

enum class NormalityTest {
    None,
    DAgostinoPearson,  ///< skewness and excess kurtosis together, K^2
    ChiSquare          ///< the counts of the codes beside those that the fit expects
};

/// Figures that are missing are not defined: all of them for equal codes.
struct BlockMoments {
    std::optional<double> skewness{};        ///< m3 / m2^1.5, moments with the divisor N
    std::optional<double> excessKurtosis{};  ///< m4 / m2^2 - 3
    std::optional<double> lag1Autocorrelation{};
};

BlockMoments ComputeMoments(std::span<const double> codes, const ExactStatistics& statistics);

/// How a block differs from independent Gaussian noise.
struct BlockShape {
    BlockMoments moments{};
    NormalityTest test = NormalityTest::None;
    std::optional<double>
        normalityP{};  ///< how often Gaussian noise looks no more normal than this
};

/// The test is that of D'Agostino and Pearson, Biometrika 60 (1973), where the fit's sigma is
/// MinSigmaForCorrection steps or more, below that the chi-square test against the fit, with codes
/// of few readings pooled. Both need 20 codes, and the second a degree of freedom: four different
/// codes with enough readings.
BlockShape ComputeShape(std::span<const double> codes, const ExactStatistics& statistics,
                        const NormalFit& fit, int step);

}  // namespace vx3260
