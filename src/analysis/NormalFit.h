// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "analysis/NoiseStatistics.h"

namespace vx3260 {

/// From this sigma on, in steps, rounding to whole steps adds 1/12 to the variance and leaves the
/// mean, both to better than 1e-7 (the error goes with exp(-2 pi^2 sigma^2)): far below what the
/// number of readings allows.
inline constexpr double MinSigmaForCorrection = 1;

/// The normal distribution of the input noise, whose values were rounded to the steps of the
/// converter to become codes.
struct NormalFit {
    double mean;   ///< codes
    double sigma;  ///< codes; 0 where all codes are equal: it is then anything well below a step
};

/// Fits a normal distribution to codes that are multiples of `step`.
///
/// Sigma is sqrt(s^2 - step^2/12) as far as that is MinSigmaForCorrection or more, with s the
/// standard deviation of the codes, and the mean is theirs. Below, both maximise the likelihood of
/// the counts of each code. Where all codes are two neighbours the likelihood has no maximum: it
/// grows until sigma is 0. There the largest sigma is returned that the absence of further codes
/// permits, at which the logarithm of the likelihood is 1/2 below its limit.
NormalFit FitNormal(std::span<const double> codes, const ExactStatistics& statistics, int step);

/// The share of the distribution below `limit`, in codes. Its sigma is above 0.
double NormalShareBelow(double limit, const NormalFit& fit);

}  // namespace vx3260
