// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "analysis/NormalFit.h"

namespace vx3260 {

/// How often the codes of a block occur. Bin i counts the codes from firstCode + i x binWidth on,
/// binWidth of them.
struct Histogram {
    std::int64_t firstCode;  ///< a whole multiple of binWidth
    std::int64_t binWidth;   ///< codes, a whole multiple of step
    std::vector<std::size_t> counts;
    int step = 1;  ///< distance of the codes that occur: 256 at 16 of 24 bits

    std::int64_t FirstCodeOf(std::size_t bin) const {
        return firstCode + static_cast<std::int64_t>(bin) * binWidth;
    }
    std::int64_t LastCodeOf(std::size_t bin) const { return FirstCodeOf(bin) + binWidth - step; }
    /// The middle of the codes that a bin counts; between two codes where their number is even.
    double CentreOf(std::size_t bin) const {
        return static_cast<double>(FirstCodeOf(bin)) + static_cast<double>(binWidth - step) / 2;
    }
};

/// How many bins a block is counted into at most for a drawing and for a spreadsheet: narrower bars
/// could not be distinguished.
inline constexpr std::size_t MaxHistogramBins = 150;

/// The bin widths of the series 1, 2, 5, 10, 20, 50 ... steps that count the block's codes into at
/// most `maxBins` bins, up to the first that leaves two or less. Codes are rounded to integers.
/// Throws SubscriptError for an empty block or less than 2 bins, OverflowError for codes beyond 32
/// bits.
std::vector<std::int64_t> BinWidthsFor(std::span<const double> codes, std::size_t maxBins,
                                       int step = 1);

/// The block's codes counted into bins of that width, 1 step or more. The first bin and the last
/// are never empty. Codes are rounded to integers. Throws as BinWidthsFor does.
Histogram CountCodes(std::span<const double> codes, std::int64_t binWidth, int step = 1);

/// CountCodes with the smallest of BinWidthsFor the block, and throws as that does.
Histogram ComputeHistogram(std::span<const double> codes, std::size_t maxBins, int step = 1);

/// How many of `readings` normally distributed codes a bin of `binWidth` codes with the middle
/// `code` is expected to count: readings x the fit's distribution over the width of the bin, which
/// reaches half a step beyond its outermost codes. 0 where sigma is 0.
double NormalCount(double code, const NormalFit& fit, std::size_t readings, std::int64_t binWidth);

}  // namespace vx3260
