// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

namespace vx3260 {

/// The statistics of a block as the forms' labels show them.
struct BlockStatistics {
    std::int32_t maxCode;
    std::int32_t minCode;
    float averageCode;         ///< summed in single precision; see ComputeStatistics
    std::int32_t rmsNoiseLsb;  ///< whole codes
};

/// The same in double precision.
struct ExactStatistics {
    double mean;   ///< codes
    double sigma;  ///< standard deviation, codes; divisor N - 1
};

/// Largest and smallest code, mean, and the root of (sum of squared deviations from that mean) /
/// (N - 1), rounded to whole codes, halves to even; 0 when all codes are the mean.
///
/// The mean is summed and stored in single precision, 24 bits: near the mid-scale of a 24-bit
/// converter it may be tens of codes off, and the deviations from it grow with that; intentional.
/// Throws SubscriptError for an empty block and OverflowError for codes beyond 32 bits.
BlockStatistics ComputeStatistics(std::span<const double> codes);

/// Mean and sample standard deviation (0 for a single code), by two passes in double precision.
/// Throws SubscriptError for an empty block.
ExactStatistics ComputeExactStatistics(std::span<const double> codes);

}  // namespace vx3260
