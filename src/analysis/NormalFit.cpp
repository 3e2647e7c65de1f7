// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NormalFit.h"

#include <boost/math/distributions/normal.hpp>
#include <boost/math/tools/roots.hpp>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

#include "analysis/Histogram.h"

namespace vx3260 {
namespace {

/// The readings of one code. The limits are in steps from the mean of all.
struct Cell {
    double lower;
    double upper;
    double readings;
};

std::vector<Cell> OccupiedCells(std::span<const double> codes, double mean, int step) {
    const Histogram histogram = CountCodes(codes, step, step);
    std::vector<Cell> cells;
    for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
        if (histogram.counts[bin] > 0) {
            const double middle = (histogram.CentreOf(bin) - mean) / step;
            cells.push_back(
                {middle - 0.5, middle + 0.5, static_cast<double>(histogram.counts[bin])});
        }
    }
    return cells;
}

bool AreTwoNeighbours(const std::vector<Cell>& cells) {
    return cells.size() == 2 && cells[1].lower - cells[0].upper < 0.5;
}

/// In steps.
struct Normal {
    double mean;
    double sigma;
};

/// The shares of both codes fix where their border is in the distribution, in sigmas; what is left
/// is how wide a step is.
Normal FitTwoNeighbours(const Cell& low, const Cell& high) {
    const boost::math::normal standard;
    const double readings = low.readings + high.readings;
    const double border = boost::math::quantile(standard, low.readings / readings);
    const auto excessOutside = [&](double stepSigmas) {
        return boost::math::cdf(standard, border - stepSigmas) +
               boost::math::cdf(standard, -border - stepSigmas) - 0.5 / readings;
    };
    constexpr double reach = 37;
    constexpr int bits = 50;
    std::uintmax_t iterations = 200;
    const auto [from, to] = boost::math::tools::toms748_solve(
        excessOutside, 0.0, std::abs(border) + reach,
        boost::math::tools::eps_tolerance<double>(bits), iterations);
    const double sigma = 2 / (from + to);
    return {low.upper - border * sigma, sigma};
}

/// The logarithm of the standard normal distribution's share between two limits, and its density
/// at each limit divided by the share.
struct Share {
    double log;
    double atLower;
    double atUpper;
};

Share ShareBetween(double lower, double upper) {
    if (lower + upper < 0) {
        const Share mirrored = ShareBetween(-upper, -lower);
        return {mirrored.log, mirrored.atUpper, mirrored.atLower};
    }
    const auto density = [](double z) {
        return std::exp(-z * z / 2) * std::numbers::inv_sqrtpi / std::numbers::sqrt2;
    };
    // Beyond, the share underflows; the density is then the limit times the share.
    constexpr double reach = 35;
    if (lower > reach) {
        const double log =
            -lower * lower / 2 - std::log(lower / std::numbers::inv_sqrtpi * std::numbers::sqrt2);
        return {log, lower, 0};
    }
    const double share =
        (std::erfc(lower / std::numbers::sqrt2) - std::erfc(upper / std::numbers::sqrt2)) / 2;
    return {std::log(share), density(lower) / share, density(upper) / share};
}

/// The logarithm of the likelihood and its derivatives. It is concave in these two parameters, so
/// that there is one maximum.
struct Likelihood {
    double scale;   ///< 1 / sigma
    double centre;  ///< mean / sigma
    double log = 0;
    double byScale = 0;
    double byCentre = 0;
    double byScaleTwice = 0;
    double byCentreTwice = 0;
    double byBoth = 0;
};

void Add(const Cell& cell, Likelihood& sum) {
    const double lower = sum.scale * cell.lower - sum.centre;
    const double upper = sum.scale * cell.upper - sum.centre;
    const auto [log, atLower, atUpper] = ShareBetween(lower, upper);
    // Second derivatives of the logarithm by the limits.
    const double lowerTwice = lower * atLower - atLower * atLower;
    const double upperTwice = -upper * atUpper - atUpper * atUpper;
    const double lowerUpper = atLower * atUpper;
    const double n = cell.readings;
    sum.log += n * log;
    sum.byScale += n * (cell.upper * atUpper - cell.lower * atLower);
    sum.byCentre += n * (atLower - atUpper);
    sum.byScaleTwice +=
        n * (cell.lower * cell.lower * lowerTwice + cell.upper * cell.upper * upperTwice +
             2 * cell.lower * cell.upper * lowerUpper);
    sum.byCentreTwice += n * (lowerTwice + upperTwice + 2 * lowerUpper);
    sum.byBoth -= n * (cell.lower * lowerTwice + cell.upper * upperTwice +
                       (cell.lower + cell.upper) * lowerUpper);
}

Likelihood LikelihoodAt(const std::vector<Cell>& cells, double scale, double centre) {
    Likelihood sum{scale, centre};
    for (const Cell& cell : cells) {
        Add(cell, sum);
    }
    return sum;
}

/// Newton's steps, halved until the likelihood grows.
Normal MaximiseLikelihood(const std::vector<Cell>& cells, double sigma) {
    constexpr int maxSteps = 100;
    constexpr double minPart = 1e-6;
    constexpr double tolerance = 1e-13;
    Likelihood best = LikelihoodAt(cells, 1 / sigma, 0);
    for (int i = 0; i < maxSteps; ++i) {
        const double determinant =
            best.byScaleTwice * best.byCentreTwice - best.byBoth * best.byBoth;
        const double scaleStep =
            (best.byBoth * best.byCentre - best.byCentreTwice * best.byScale) / determinant;
        const double centreStep =
            (best.byBoth * best.byScale - best.byScaleTwice * best.byCentre) / determinant;
        if (!std::isfinite(scaleStep) || !std::isfinite(centreStep) ||
            std::hypot(scaleStep, centreStep) < tolerance * best.scale) {
            break;
        }
        double part = 1;
        Likelihood next = best;
        do {
            const double scale = best.scale + part * scaleStep;
            if (scale > 0) {
                next = LikelihoodAt(cells, scale, best.centre + part * centreStep);
            }
            part /= 2;
        } while (!(next.log > best.log) && part > minPart);
        if (!(next.log > best.log)) {
            break;
        }
        best = next;
    }
    return {best.centre / best.scale, 1 / best.scale};
}

}  // namespace

NormalFit FitNormal(std::span<const double> codes, const ExactStatistics& statistics, int step) {
    if (statistics.sigma == 0) {
        return {statistics.mean, 0};
    }
    const double steps = statistics.sigma / step;
    const double variance = steps * steps - 1.0 / 12;
    if (variance >= MinSigmaForCorrection * MinSigmaForCorrection) {
        return {statistics.mean, step * std::sqrt(variance)};
    }
    constexpr double minStart = 0.3;
    const std::vector<Cell> cells = OccupiedCells(codes, statistics.mean, step);
    const Normal fit =
        AreTwoNeighbours(cells)
            ? FitTwoNeighbours(cells[0], cells[1])
            : MaximiseLikelihood(cells, std::sqrt(std::max(variance, minStart * minStart)));
    return {statistics.mean + step * fit.mean, step * fit.sigma};
}

double NormalShareBelow(double limit, const NormalFit& fit) {
    return std::erfc((fit.mean - limit) / fit.sigma / std::numbers::sqrt2) / 2;
}

}  // namespace vx3260
