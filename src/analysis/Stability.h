// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace vx3260 {

/// Over how many readings is averaged, up to half of the block.
enum class AveragingFactors {
    Octave,  ///< 1, 2, 4, 8, 16 ...
    Decade,  ///< 1, 2, 4, 10, 20, 40, 100 ...
    All      ///< 1, 2, 3, 4 ...
};

/// One point of the deviation over averaging time. All are in codes.
struct AllanPoint {
    std::size_t factor;  ///< readings averaged; their time is factor x the interval of readings
    double deviation;
    double low;  ///< confidence limits, 95 %
    double high;
};

/// The overlapping Allan deviation of the codes: the root of half the mean squared difference of
/// neighbouring averages of `factor` readings, at every place of the block. For uncorrelated
/// readings it is sigma / sqrt(factor); it stops to fall where averaging more does not help. None
/// for a single code.
///
/// The confidence limits are by the chi-square distribution with the equivalent degrees of freedom
/// of white noise, 4 m^2 / (4 m^2 + 5) x (3 (N - 1) / (2 m) - 2 (N - 2) / N) with the factor m and
/// N - 1 codes: W. J. Riley, Handbook of Frequency Stability Analysis, NIST SP 1065 (2008), whose
/// frequencies the codes are here.
std::vector<AllanPoint> AllanDeviation(std::span<const double> codes, AveragingFactors factors);

/// What uncorrelated readings would show at a factor, if the deviation of single readings is
/// theirs. The points are not empty.
double WhiteNoiseDeviation(std::span<const AllanPoint> points, std::size_t factor);

}  // namespace vx3260
