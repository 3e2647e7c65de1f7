// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/BlockWarnings.h"

#include <algorithm>
#include <array>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <cmath>
#include <numeric>

#include "analysis/BlockShape.h"
#include "analysis/ConversionConditions.h"
#include "analysis/NoiseStatistics.h"
#include "analysis/Resolution.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

/// Fewer codes are not judged by statistics.
constexpr std::size_t minReadings = 10;

/// How often a warning by statistics is false, per block.
constexpr double falseAlarms = 1e-5;

struct Block {
    std::span<const double> codes;
    Converter converter;
    const WarningContext& context;
    double step = context.codeStep;

    double Largest() const { return LargestCodeOf(converter) - (step - 1); }
    auto Count(auto condition) const {
        return std::count_if(codes.begin(), codes.end(), condition);
    }
    std::string InSteps(double codesApart) const {
        return SignificantText(codesApart / step, 3) + " LSB";
    }
};

using Warnings = std::vector<BlockWarning>;

std::string EndText(std::int64_t atZero, std::int64_t atFullScale, std::int32_t fullScale) {
    std::string text;
    if (atZero > 0) {
        text = CountText(atZero, "code") + " at 0";
    }
    if (atFullScale > 0) {
        text += (text.empty() ? "" : " and ") + CountText(atFullScale, "code") +
                " at full scale, " + PrefixedHex(fullScale);
    }
    return text;
}

std::int64_t AddClipped(const Block& block, Warnings& warnings) {
    const double largest = block.Largest();
    const std::int64_t atZero = block.Count([](double code) { return code == 0; });
    const std::int64_t atFullScale =
        block.Count([largest](double code) { return code == largest; });
    const std::int64_t count = atZero + atFullScale;
    if (count > 0) {
        warnings.push_back({WarningKind::Clipped, count,
                            "clipped: " + EndText(atZero, atFullScale, ToInt32(largest)) +
                                "; mean and noise are wrong. Choose a larger input range, bipolar "
                                "for inputs around 0 V, or check the input's wiring"});
    }
    return count;
}

bool AddConstant(const Block& block, Warnings& warnings) {
    const double first = block.codes.front();
    const bool constant =
        block.codes.size() > 1 && block.Count([first](double code) { return code != first; }) == 0;
    const bool atEnd = first == 0 || first == block.Largest();
    if (!constant || atEnd) {
        return constant;
    }
    // At 16 bits a healthy converter can be quieter than one step, at 24 it cannot.
    const bool canBeQuiet = block.converter == Converter::Aux || block.step > 1;
    const auto count = static_cast<std::int64_t>(block.codes.size());
    warnings.push_back(
        {WarningKind::Constant, count,
         "all " + CountText(count, "code") + " are " + PrefixedHex(ToInt32(first)) + "; " +
             (canBeQuiet ? "the input is over range, a line is stuck or the noise is below one LSB"
                         : "the input is over range or a line is stuck") +
             ". Check the input and the cable"});
    return true;
}

bool AddOutside(const Block& block, Warnings& warnings) {
    const std::int32_t largest = LargestCodeOf(block.converter);
    const std::int64_t count =
        block.Count([largest](double code) { return code < 0 || code > largest; });
    if (count > 0) {
        warnings.push_back({WarningKind::Outside, count,
                            CountText(count, "code") + (count == 1 ? " is" : " are") +
                                " outside 0 to " + PrefixedHex(largest) +
                                "; is it the right file and notation?"});
    }
    return count > 0;
}

/// `values` are reordered. `part` is 0 to 1; between two values the upper one at 1/2.
double Quantile(std::vector<double>& values, double part) {
    const double last = static_cast<double>(values.size()) - 1;
    const auto at = values.begin() + std::lround(part * last);
    std::nth_element(values.begin(), at, values.end());
    return *at;
}

constexpr double sigmasOfMedian = 1.4826;

/// In robust sigmas.
double OutlierSigmas(std::size_t readings) {
    constexpr double sigmas = 8;
    constexpr double many = 40;
    constexpr double growth = 15;
    const double missing = std::max(0.0, many - static_cast<double>(readings));
    return sigmas * (1 + missing / growth);
}

double OutlierLimit(std::vector<double>& deviations, double step) {
    constexpr double sigmaOf90Percent = 1.645;
    constexpr double stepsToBeSeen = 2;
    const double median = Quantile(deviations, 0.5);
    double sigma = std::max(sigmasOfMedian * median, RoundingSigma * step);
    if (median < stepsToBeSeen * step) {
        sigma = std::max(sigma, Quantile(deviations, 0.9) / sigmaOf90Percent);
    }
    return OutlierSigmas(deviations.size()) * sigma;
}

/// Without sorting: whether the farthest deviation is within the limit, since half of all are above
/// the corresponding part of it.
bool AllWithinLimit(const std::vector<double>& deviations, double step) {
    const double farthest = *std::max_element(deviations.begin(), deviations.end());
    const double sigma = farthest / OutlierSigmas(deviations.size());
    const auto below = std::count_if(deviations.begin(), deviations.end(), [sigma](double value) {
        return value * sigmasOfMedian < sigma;
    });
    return sigma <= RoundingSigma * step || below < std::ssize(deviations) / 2;
}

void AddOutliers(const Block& block, Warnings& warnings) {
    std::vector<double> values(block.codes.begin(), block.codes.end());
    const double median = Quantile(values, 0.5);
    for (double& value : values) {
        value = std::abs(value - median);
    }
    if (AllWithinLimit(values, block.step)) {
        return;
    }
    const double limit = OutlierLimit(values, block.step);
    std::vector<double> kept;
    double farthest = limit;
    std::size_t farthestAt = 0;
    for (std::size_t i = 0; i < block.codes.size(); ++i) {
        const double distance = std::abs(block.codes[i] - median);
        if (distance <= limit) {
            kept.push_back(block.codes[i]);
        } else if (distance > farthest) {
            farthest = distance;
            farthestAt = i;
        }
    }
    const auto count = static_cast<std::int64_t>(block.codes.size() - kept.size());
    if (count == 0) {
        return;
    }
    const ExactStatistics without = ComputeExactStatistics(kept);
    warnings.push_back({WarningKind::Outlier, count,
                        CountText(count, "outlier") + ", the farthest reading " +
                            std::to_string(farthestAt + 1) + ", " + block.InSteps(farthest) +
                            " from the median; without " + (count == 1 ? "it" : "them") +
                            " the mean code is " + FixedText(without.mean, 1) + " and sigma " +
                            block.InSteps(without.sigma) +
                            ". Look at the plot, and check cable and supply for interference"});
}

void AddMissed(const Block& block, Warnings& warnings) {
    if (const std::int64_t count = block.context.missed; count > 0) {
        warnings.push_back({WarningKind::Missed, count,
                            CountText(count, "conversion") +
                                " missed between the readings: the codes are not evenly spaced in "
                                "time. Close other programs or choose a lower update rate"});
    }
}

constexpr const char* assumption = "the standard error assumes independent readings";

void AddDrift(const Block& block, Warnings& warnings) {
    const std::size_t half = block.codes.size() / 2;
    const ExactStatistics first = ComputeExactStatistics(block.codes.first(half));
    const ExactStatistics last = ComputeExactStatistics(block.codes.last(half));
    const auto n = static_cast<double>(half);
    const double variance = (first.sigma * first.sigma + last.sigma * last.sigma) / 2;
    const double rounding = RoundingSigma * block.step;
    const double error = std::sqrt(std::max(variance, rounding * rounding) * 2 / n);
    const boost::math::students_t distribution(2 * n - 2);
    const double limit =
        boost::math::quantile(boost::math::complement(distribution, falseAlarms / 2));
    const double difference = last.mean - first.mean;
    if (std::abs(difference) <= limit * error) {
        return;
    }
    warnings.push_back({WarningKind::Drift, std::nullopt,
                        "drift: the second half's mean is " + block.InSteps(std::abs(difference)) +
                            (difference > 0 ? " above" : " below") + " the first half's, " +
                            SignificantText(std::abs(difference) / error, 2) +
                            " times the standard error of that; " + assumption +
                            ". Let the board warm up, or look for drift of the input"});
}

/// How far a standardised sum may be from 0, of a given skewness and excess kurtosis.
double CornishFisherLimit(double skewness, double kurtosis) {
    const double z =
        boost::math::quantile(boost::math::complement(boost::math::normal(), falseAlarms / 2));
    return z + (z * z - 1) * skewness / 6 + (z * z * z - 3 * z) * kurtosis / 24;
}

void AddCorrelated(const Block& block, Warnings& warnings) {
    const ExactStatistics statistics = ComputeExactStatistics(block.codes);
    const BlockMoments moments = ComputeMoments(block.codes, statistics);
    if (!moments.lag1Autocorrelation) {
        return;
    }
    const auto n = static_cast<double>(block.codes.size());
    // Of the sum of products of neighbours, from those of the codes.
    const double skewness = *moments.skewness * *moments.skewness / std::sqrt(n);
    const double fourth = *moments.excessKurtosis + 3;
    const double limit = CornishFisherLimit(skewness, (fourth * fourth + 6 * fourth - 9) / n);
    const double correlation = *moments.lag1Autocorrelation;
    if (std::abs(correlation + 1 / n) * std::sqrt(n) <= limit) {
        return;
    }
    warnings.push_back({WarningKind::Correlated, std::nullopt,
                        "readings depend on the ones before: lag-1 autocorrelation " +
                            FixedText(correlation, 2) + "; " + assumption +
                            ". Look for mains interference or drift in the plot, or choose a "
                            "lower update rate"});
}

void AddOverRange(const Block& block, Warnings& warnings) {
    if (block.context.overRange.value_or(false)) {
        warnings.push_back({WarningKind::OverRange, std::nullopt,
                            "the chip reports over range for the last conversion. Choose a larger "
                            "input range or check the input"});
    }
}

}  // namespace

std::string_view NameOf(WarningKind kind) {
    constexpr std::array<std::string_view, 8> names{
        "clipped", "constant", "outside", "outlier", "missed", "drift", "correlated", "over-range"};
    return names.at(static_cast<std::size_t>(kind));
}

std::vector<BlockWarning> WarningsAbout(std::span<const double> codes, Converter converter,
                                        const WarningContext& context) {
    if (codes.empty()) {
        return {};
    }
    constexpr double maxShareClipped = 0.01;
    const Block block{codes, converter, context};
    Warnings warnings;
    const auto clipped = static_cast<double>(AddClipped(block, warnings));
    const bool constant = AddConstant(block, warnings);
    const bool outside = AddOutside(block, warnings);
    const bool judged = !constant && !outside && codes.size() >= minReadings &&
                        clipped <= maxShareClipped * static_cast<double>(codes.size());
    if (judged) {
        AddOutliers(block, warnings);
    }
    AddMissed(block, warnings);
    if (judged) {
        AddDrift(block, warnings);
        AddCorrelated(block, warnings);
    }
    AddOverRange(block, warnings);
    return warnings;
}

std::vector<BlockWarning> WarningsAbout(std::span<const double> codes,
                                        const BlockConditions& reading,
                                        std::optional<bool> overRange) {
    const std::optional<ConversionConditions> own = ConditionsOf(reading);
    return WarningsAbout(codes, reading.converter,
                         {.codeStep = own ? own->codeStep : 1,
                          .missed = reading.missedConversions.value_or(0),
                          .overRange = overRange});
}

std::optional<std::int64_t> MissedConversions(std::span<const double> seconds,
                                              std::optional<double> nominalInterval) {
    constexpr std::size_t minTimes = 4;
    constexpr double maxIntervals = 1.5;
    if (seconds.size() < minTimes) {
        return std::nullopt;
    }
    std::vector<double> intervals(seconds.size());
    std::adjacent_difference(seconds.begin(), seconds.end(), intervals.begin());
    intervals.erase(intervals.begin());
    std::vector<double> sorted = intervals;
    const double median = Quantile(sorted, 0.5);
    const double interval = std::min(median, nominalInterval.value_or(median));
    if (!(interval > 0)) {
        return std::nullopt;
    }
    double missed = 0;
    for (const double time : intervals) {
        missed +=
            time > maxIntervals * interval ? std::max(1.0, std::round(time / interval) - 1) : 0;
    }
    return static_cast<std::int64_t>(std::min(missed, 1e15));
}

std::vector<std::string> TextsOf(std::span<const BlockWarning> warnings) {
    std::vector<std::string> texts;
    for (const BlockWarning& warning : warnings) {
        texts.push_back(warning.text);
    }
    return texts;
}

bool Refuses(const BlockWarning& warning, std::size_t codes) {
    return warning.kind == WarningKind::Constant || warning.kind == WarningKind::Outside ||
           (warning.kind == WarningKind::Clipped && codes > 1 &&
            warning.count == static_cast<std::int64_t>(codes));
}

}  // namespace vx3260
