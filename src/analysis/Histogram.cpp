// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Histogram.h"

#include <algorithm>
#include <cmath>

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

struct CodeRange {
    std::int64_t min;
    std::int64_t max;
};

CodeRange RangeOf(std::span<const double> codes) {
    if (codes.empty()) {
        throw SubscriptError();
    }
    const auto [smallest, largest] = std::minmax_element(codes.begin(), codes.end());
    return {ToInt32(*smallest), ToInt32(*largest)};
}

}  // namespace

std::vector<std::int64_t> BinWidthsFor(std::span<const double> codes, std::size_t maxBins,
                                       int step) {
    // Codes on both sides of 0 are in two bins at any width.
    constexpr std::int64_t minBins = 2;
    const CodeRange range = RangeOf(codes);
    const auto binLimit = static_cast<std::int64_t>(maxBins);
    if (binLimit < minBins) {
        throw SubscriptError();
    }
    std::vector<std::int64_t> widths;
    for (std::int64_t decade = step;; decade *= 10) {
        for (const std::int64_t width : {decade, 2 * decade, 5 * decade}) {
            const std::int64_t bins = BinsBetween(range.min, range.max, width);
            if (bins <= binLimit) {
                widths.push_back(width);
            }
            if (bins <= minBins) {
                return widths;
            }
        }
    }
}

Histogram CountCodes(std::span<const double> codes, std::int64_t binWidth, int step) {
    const CodeRange range = RangeOf(codes);
    Histogram histogram{FloorDivide(range.min, binWidth) * binWidth, binWidth, {}, step};
    histogram.counts.resize(static_cast<std::size_t>(BinsBetween(range.min, range.max, binWidth)));
    // Exact for codes of 32 bits, and faster than a division of whole numbers.
    const auto first = static_cast<double>(histogram.firstCode);
    const auto width = static_cast<double>(binWidth);
    for (const double code : codes) {
        ++histogram.counts[static_cast<std::size_t>((ToInt32(code) - first) / width)];
    }
    return histogram;
}

Histogram ComputeHistogram(std::span<const double> codes, std::size_t maxBins, int step) {
    return CountCodes(codes, BinWidthsFor(codes, maxBins, step).front(), step);
}

double NormalCount(double code, const NormalFit& fit, std::size_t readings, std::int64_t binWidth) {
    if (fit.sigma == 0) {
        return 0;
    }
    const double halfWidth = static_cast<double>(binWidth) / 2;
    // The distribution is symmetric: of its two tails the lower one is exact.
    const double distance = std::abs(code - fit.mean);
    const NormalFit centred{0, fit.sigma};
    return static_cast<double>(readings) * (NormalShareBelow(halfWidth - distance, centred) -
                                            NormalShareBelow(-halfWidth - distance, centred));
}

}  // namespace vx3260
