// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Stability.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <cmath>
#include <numeric>

namespace vx3260 {
namespace {

/// The sums of the first 0, 1, 2 ... codes less the mean. That is rounded to a whole code, which
/// changes no deviation and leaves the sums of whole codes exact.
std::vector<double> SumsOf(std::span<const double> codes) {
    const double mean =
        std::accumulate(codes.begin(), codes.end(), 0.0) / static_cast<double>(codes.size());
    const double level = std::nearbyint(mean);
    std::vector<double> sums{0};
    sums.reserve(codes.size() + 1);
    for (const double code : codes) {
        sums.push_back(sums.back() + (code - level));
    }
    return sums;
}

double DeviationAt(std::span<const double> sums, std::size_t factor) {
    const std::size_t differences = sums.size() - 2 * factor;
    double squares = 0;
    for (std::size_t i = 0; i < differences; ++i) {
        const double difference = sums[i + 2 * factor] - 2 * sums[i + factor] + sums[i];
        squares += difference * difference;
    }
    const auto m = static_cast<double>(factor);
    return std::sqrt(squares / (2 * static_cast<double>(differences))) / m;
}

double DegreesOfFreedom(std::size_t codes, std::size_t factor) {
    const auto n = static_cast<double>(codes + 1);
    const auto m = static_cast<double>(factor);
    const double squared = 4 * m * m;
    return squared / (squared + 5) * (3 * (n - 1) / (2 * m) - 2 * (n - 2) / n);
}

AllanPoint PointAt(std::span<const double> sums, std::size_t factor) {
    constexpr double tail = (1 - 0.95) / 2;
    const double deviation = DeviationAt(sums, factor);
    const double freedom = DegreesOfFreedom(sums.size() - 1, factor);
    const boost::math::chi_squared distribution(freedom);
    const double upper = quantile(complement(distribution, tail));
    const double lower = quantile(distribution, tail);
    return {factor, deviation, deviation * std::sqrt(freedom / upper),
            deviation * std::sqrt(freedom / lower)};
}

std::size_t Next(std::size_t factor, AveragingFactors factors) {
    if (factors == AveragingFactors::All) {
        return factor + 1;
    }
    std::size_t leading = factor;
    while (leading % 10 == 0) {
        leading /= 10;
    }
    const bool endsDecade = factors == AveragingFactors::Decade && leading == 4;
    return endsDecade ? factor / 4 * 10 : factor * 2;
}

}  // namespace

std::vector<AllanPoint> AllanDeviation(std::span<const double> codes, AveragingFactors factors) {
    if (codes.size() < 2) {
        return {};
    }
    const std::vector<double> sums = SumsOf(codes);
    std::vector<AllanPoint> points;
    for (std::size_t factor = 1; factor <= codes.size() / 2; factor = Next(factor, factors)) {
        points.push_back(PointAt(sums, factor));
    }
    return points;
}

double WhiteNoiseDeviation(std::span<const AllanPoint> points, std::size_t factor) {
    return points.front().deviation / std::sqrt(static_cast<double>(factor));
}

}  // namespace vx3260
