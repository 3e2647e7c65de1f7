// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>

namespace vx3260 {

/// How much peak-to-peak noise is expected of Gaussian noise, in sigmas: 99.9 % of all codes are
/// within.
inline constexpr double PeakToPeakSigmas = 6.6;

/// A 95 % confidence interval.
struct Interval {
    double low;
    double high;

    /// The standard uncertainty that an interval of that width belongs to.
    double Uncertainty() const { return (high - low) / (2 * 1.959964); }
};

/// A resolution in bits; only a lower bound where the noise is too small to be measured in steps.
struct ResolutionBits {
    double bits;
    bool isLowerBound;
    std::optional<Interval> limits{};  ///< where bits are computed from sigma
};

/// The noise of a block in the terms of converter data sheets, in double precision throughout. A
/// figure is missing where it is not defined: with a single reading.
struct Resolution {
    std::size_t readings;              ///< N
    std::optional<double> rmsNoise{};  ///< codes; standard deviation sigma with the divisor N - 1
    /// Codes; sigma x sqrt((N - 1) / quantile of chi-square), missing for equal codes too.
    std::optional<Interval> rmsNoiseLimits{};
    std::optional<double> standardError{};  ///< codes; of the mean: sigma / sqrt(N)
    std::optional<double> peakToPeak{};     ///< codes; estimated as PeakToPeakSigmas x sigma
    /// log2(2^n / sigma) with sigma in steps and n the width of a result. Below a sigma of
    /// 1 / sqrt(12) step, what rounding alone causes, "at least n".
    std::optional<ResolutionBits> effective{};
    /// log2(2^n / (PeakToPeakSigmas x sigma)); below that sigma at least what it gives at it.
    std::optional<ResolutionBits> noiseFreeFromSigma{};
    std::optional<ResolutionBits> noiseFree{};  ///< log2(2^n / (largest - smallest code))
};

/// `sigma` and `span`, the largest minus the smallest code, in codes; results have `bits` bits and
/// are multiples of `step` codes.
Resolution ComputeResolution(std::size_t readings, double sigma, double span, int bits, int step);

/// The deviation of noise that rounding to steps causes, 1 / sqrt(12).
inline constexpr double RoundingSigma = 0.28867513459481288;

}  // namespace vx3260
