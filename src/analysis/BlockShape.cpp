// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/BlockShape.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <cmath>
#include <numeric>
#include <vector>

#include "analysis/Histogram.h"

namespace vx3260 {
namespace {

constexpr std::size_t minReadingsForTest = 20;

/// Of the skewness, as a standard normal deviate: D'Agostino's transformation.
double SkewnessDeviate(double skewness, double n) {
    const double y = skewness * std::sqrt((n + 1) * (n + 3) / (6 * (n - 2)));
    const double kurtosis =
        3 * (n * n + 27 * n - 70) * (n + 1) * (n + 3) / ((n - 2) * (n + 5) * (n + 7) * (n + 9));
    const double square = -1 + std::sqrt(2 * (kurtosis - 1));
    return std::asinh(y / std::sqrt(2 / (square - 1))) / std::sqrt(std::log(square) / 2);
}

/// Of the kurtosis: the transformation of Anscombe and Glynn.
double KurtosisDeviate(double kurtosis, double n) {
    const double mean = 3 * (n - 1) / (n + 1);
    const double variance = 24 * n * (n - 2) * (n - 3) / ((n + 1) * (n + 1) * (n + 3) * (n + 5));
    const double x = (kurtosis - mean) / std::sqrt(variance);
    const double skew = 6 * (n * n - 5 * n + 2) / ((n + 7) * (n + 9)) *
                        std::sqrt(6 * (n + 3) * (n + 5) / (n * (n - 2) * (n - 3)));
    const double a = 6 + 8 / skew * (2 / skew + std::sqrt(1 + 4 / (skew * skew)));
    const double ratio = (1 - 2 / a) / (1 + x * std::sqrt(2 / (a - 4)));
    return (1 - 2 / (9 * a) - std::cbrt(ratio)) / std::sqrt(2 / (9 * a));
}

double DAgostinoPearsonP(double skewness, double excessKurtosis, std::size_t readings) {
    const auto n = static_cast<double>(readings);
    const double ofSkewness = SkewnessDeviate(skewness, n);
    const double ofKurtosis = KurtosisDeviate(excessKurtosis + 3, n);
    // The chi-square distribution with two degrees of freedom is an exponential one.
    return std::exp(-(ofSkewness * ofSkewness + ofKurtosis * ofKurtosis) / 2);
}

struct Pool {
    double counted = 0;
    double expected = 0;
};

void Add(const Pool& pool, Pool& sum) {
    sum.counted += pool.counted;
    sum.expected += pool.expected;
}

/// Neighbouring codes, so many that enough readings are expected of each pool; those beyond the
/// outermost codes count as one more at either end.
std::vector<Pool> PoolsOf(std::span<const double> codes, const NormalFit& fit, int step) {
    constexpr double minExpected = 5;
    const Histogram histogram = CountCodes(codes, step, step);
    const auto readings = static_cast<double>(codes.size());
    std::vector<Pool> pools;
    Pool open;
    double before = 0;
    for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
        const bool last = bin + 1 == histogram.counts.size();
        const double upTo =
            last ? readings
                 : readings * NormalShareBelow(histogram.CentreOf(bin) + step / 2.0, fit);
        Add({static_cast<double>(histogram.counts[bin]), upTo - before}, open);
        before = upTo;
        if (open.expected >= minExpected) {
            pools.push_back(open);
            open = {};
        }
    }
    if (!pools.empty()) {
        Add(open, pools.back());
    }
    return pools;
}

/// Two parameters were fitted, and the sum is known.
std::optional<double> ChiSquareP(std::span<const double> codes, const NormalFit& fit, int step) {
    constexpr std::size_t known = 3;
    const std::vector<Pool> pools = PoolsOf(codes, fit, step);
    if (pools.size() <= known) {
        return std::nullopt;
    }
    double chiSquare = 0;
    for (const Pool& pool : pools) {
        const double difference = pool.counted - pool.expected;
        chiSquare += difference * difference / pool.expected;
    }
    const boost::math::chi_squared distribution(static_cast<double>(pools.size() - known));
    return boost::math::cdf(boost::math::complement(distribution, chiSquare));
}

}  // namespace

BlockMoments ComputeMoments(std::span<const double> codes, const ExactStatistics& statistics) {
    if (statistics.sigma == 0) {
        return {};
    }
    const auto n = static_cast<double>(codes.size());
    // From a whole number near it the mean has digits that it has not from 0: a skewness of nearly
    // 0 needs them.
    const double origin = std::nearbyint(statistics.mean);
    const double mean =
        std::accumulate(codes.begin(), codes.end(), 0.0,
                        [origin](double sum, double code) { return sum + (code - origin); }) /
        n;
    double squares = 0;
    double cubes = 0;
    double fourths = 0;
    double neighbours = 0;
    double before = 0;
    for (const double code : codes) {
        const double deviation = code - origin - mean;
        const double square = deviation * deviation;
        squares += square;
        cubes += square * deviation;
        fourths += square * square;
        neighbours += before * deviation;
        before = deviation;
    }
    const double variance = squares / n;
    return {.skewness = cubes / n / (variance * std::sqrt(variance)),
            .excessKurtosis = fourths / n / (variance * variance) - 3,
            .lag1Autocorrelation = neighbours / squares};
}

BlockShape ComputeShape(std::span<const double> codes, const ExactStatistics& statistics,
                        const NormalFit& fit, int step) {
    BlockShape shape{.moments = ComputeMoments(codes, statistics)};
    if (codes.size() < minReadingsForTest || statistics.sigma == 0) {
        return shape;
    }
    const bool fine = fit.sigma >= MinSigmaForCorrection * step;
    shape.normalityP = fine ? DAgostinoPearsonP(*shape.moments.skewness,
                                                *shape.moments.excessKurtosis, codes.size())
                            : ChiSquareP(codes, fit, step);
    if (shape.normalityP) {
        shape.test = fine ? NormalityTest::DAgostinoPearson : NormalityTest::ChiSquare;
    }
    return shape;
}

}  // namespace vx3260
