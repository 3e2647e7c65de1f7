// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Resolution.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <cmath>

namespace vx3260 {
namespace {

constexpr double significance = 0.05;

std::optional<Interval> LimitsOf(double sigma, std::size_t readings) {
    if (sigma == 0) {
        return std::nullopt;
    }
    const auto freedom = static_cast<double>(readings - 1);
    const boost::math::chi_squared distribution(freedom);
    const double high =
        boost::math::quantile(boost::math::complement(distribution, significance / 2));
    const double low = boost::math::quantile(distribution, significance / 2);
    return Interval{sigma * std::sqrt(freedom / high), sigma * std::sqrt(freedom / low)};
}

/// Of `sigmas` times sigma; `limits` are sigma's. Both are in steps.
ResolutionBits BitsOfSigma(double sigma, const std::optional<Interval>& limits, double sigmas,
                           int bits) {
    const auto bitsOf = [sigmas, bits](double noise) { return bits - std::log2(sigmas * noise); };
    if (sigma < RoundingSigma || !limits) {
        return {std::min<double>(bits, bitsOf(RoundingSigma)), true};
    }
    return {bitsOf(sigma), false, Interval{bitsOf(limits->high), bitsOf(limits->low)}};
}

ResolutionBits BitsOfSpan(double span, int bits) {
    if (span == 0) {
        return {static_cast<double>(bits), true};
    }
    return {bits - std::log2(span), false};
}

}  // namespace

Resolution ComputeResolution(std::size_t readings, double sigma, double span, int bits, int step) {
    Resolution resolution{.readings = readings};
    if (readings < 2) {
        return resolution;
    }
    std::optional<Interval> limits = LimitsOf(sigma, readings);
    resolution.rmsNoise = sigma;
    resolution.rmsNoiseLimits = limits;
    resolution.standardError = sigma / std::sqrt(static_cast<double>(readings));
    resolution.peakToPeak = PeakToPeakSigmas * sigma;
    if (limits) {
        limits = Interval{limits->low / step, limits->high / step};
    }
    resolution.effective = BitsOfSigma(sigma / step, limits, 1, bits);
    resolution.noiseFreeFromSigma = BitsOfSigma(sigma / step, limits, PeakToPeakSigmas, bits);
    resolution.noiseFree = BitsOfSpan(span / step, bits);
    return resolution;
}

}  // namespace vx3260
