// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Histogram.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "numbers/Conversions.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

std::int64_t FloorDivide(std::int64_t number, std::int64_t divisor) {
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

std::int64_t BinsBetween(std::int64_t minCode, std::int64_t maxCode, std::int64_t width) {
    return FloorDivide(maxCode, width) - FloorDivide(minCode, width) + 1;
}

std::int64_t WidthFor(std::int64_t minCode, std::int64_t maxCode, std::int64_t maxBins) {
    for (std::int64_t decade = 1;; decade *= 10) {
        for (const std::int64_t width : {decade, 2 * decade, 5 * decade}) {
            if (BinsBetween(minCode, maxCode, width) <= maxBins) {
                return width;
            }
        }
    }
}

}  // namespace

Histogram ComputeHistogram(std::span<const double> codes, std::size_t maxBins) {
    // Codes on both sides of 0 are in two bins at any width.
    if (codes.empty() || maxBins < 2) {
        throw SubscriptError();
    }
    const auto [smallest, largest] = std::minmax_element(codes.begin(), codes.end());
    const std::int64_t minCode = ToInt32(*smallest);
    const std::int64_t maxCode = ToInt32(*largest);
    const std::int64_t width = WidthFor(minCode, maxCode, static_cast<std::int64_t>(maxBins));
    Histogram histogram{FloorDivide(minCode, width) * width, width, {}};
    histogram.counts.resize(static_cast<std::size_t>(BinsBetween(minCode, maxCode, width)));
    for (const double code : codes) {
        const std::int64_t offset = ToInt32(code) - histogram.firstCode;
        ++histogram.counts[static_cast<std::size_t>(offset / width)];
    }
    return histogram;
}

double NormalCount(double code, const ExactStatistics& statistics, std::size_t readings,
                   std::int64_t binWidth) {
    if (statistics.sigma == 0) {
        return 0;
    }
    const double halfWidth = static_cast<double>(binWidth) / 2;
    const auto below = [&statistics](double limit) {
        return std::erf((limit - statistics.mean) / statistics.sigma / std::numbers::sqrt2) / 2;
    };
    return static_cast<double>(readings) * (below(code + halfWidth) - below(code - halfWidth));
}

}  // namespace vx3260
