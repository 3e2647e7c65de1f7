// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "link/BlockConditions.h"
#include "link/Converter.h"

namespace vx3260 {

enum class WarningKind {
    Clipped,     ///< codes at either end of the range
    Constant,    ///< all codes are the same, and not at an end
    Outside,     ///< codes that the converter does not have, such as the value of a time-out
    Outlier,     ///< codes far away from the others
    Missed,      ///< conversions missing between readings
    Drift,       ///< the block's halves differ
    Correlated,  ///< readings depend on the ones before
    OverRange    ///< the chip reported an error of the last conversion
};

/// The kind's name in JSON: "clipped", "over-range".
std::string_view NameOf(WarningKind kind);

/// What makes the figures of a block wrong, or worth less.
struct BlockWarning {
    WarningKind kind;
    std::optional<std::int64_t> count;  ///< codes or conversions concerned, where they are counted
    std::string text;                   ///< to follow "Warning: ", with the count and a remedy
};

/// What is known of a block besides its codes.
struct WarningContext {
    int codeStep = 1;                 ///< 256 for the main ADC's word length of 16 bits
    std::int64_t missed = 0;          ///< conversions that were not read, as far as known
    std::optional<bool> overRange{};  ///< the status register's error bit after the last code
};

/// What makes the block unfit, in the order of WarningKind; nothing for an empty block.
///
/// Codes at an end are judged alone where they are more than 1 % of the block, as are codes outside
/// and equal ones: all other figures follow from these.
///
/// Outliers are farther from the median than 8 robust sigmas, 1.4826 x the median absolute
/// deviation, of 10 codes or more. With less than 40 codes the limit is higher, up to 24 sigmas of
/// 10: the median deviation of a few codes can be small by chance. Where rounding hides the median
/// deviation, below 2 steps, sigma is at least the 90 % deviation / 1.645 and at least
/// step / sqrt(12).
///
/// Drift is a difference of the halves' means that Student's t distribution allows once in 10^5
/// blocks, with a deviation of no less than step / sqrt(12); correlation a lag-1 autocorrelation
/// that is as rare in independent readings, by a normal distribution corrected for the skewness
/// and kurtosis of the codes (Cornish and Fisher). Both need 10 codes.
std::vector<BlockWarning> WarningsAbout(std::span<const double> codes, Converter converter,
                                        const WarningContext& context = {});

/// The same for a block whose reading is known.
std::vector<BlockWarning> WarningsAbout(std::span<const double> codes,
                                        const BlockConditions& reading,
                                        std::optional<bool> overRange = std::nullopt);

/// How many conversions were not read, by the gaps of more than 1.5 intervals between the times of
/// the codes; nothing for less than 4 times. An interval is the median, or the nominal one where
/// that is smaller.
std::optional<std::int64_t> MissedConversions(std::span<const double> seconds,
                                              std::optional<double> nominalInterval);

std::vector<std::string> TextsOf(std::span<const BlockWarning> warnings);

/// Whether a block with this warning is refused unless the user insists: all codes are equal,
/// at an end of the range too, or some are not the converter's. `codes` is how many the block has.
bool Refuses(const BlockWarning& warning, std::size_t codes);

}  // namespace vx3260
