// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseStatistics.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "numbers/Conversions.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

double SumOfSquaredDeviations(std::span<const double> codes, double mean) {
    return std::accumulate(codes.begin(), codes.end(), 0.0, [mean](double sum, double code) {
        return sum + (code - mean) * (code - mean);
    });
}

double SampleDeviation(std::span<const double> codes, double mean) {
    const double squares = SumOfSquaredDeviations(codes, mean);
    return squares == 0 ? 0.0 : std::sqrt(squares / (static_cast<double>(codes.size()) - 1));
}

void CheckNotEmpty(std::span<const double> codes) {
    if (codes.empty()) {
        throw SubscriptError();
    }
}

}  // namespace

BlockStatistics ComputeStatistics(std::span<const double> codes) {
    CheckNotEmpty(codes);
    const auto [smallest, largest] = std::minmax_element(codes.begin(), codes.end());
    float sum = 0;
    for (const double code : codes) {
        sum = static_cast<float>(sum + code);
    }
    const float average = sum / static_cast<float>(codes.size());
    return {.maxCode = ToInt32(*largest),
            .minCode = ToInt32(*smallest),
            .averageCode = average,
            .rmsNoiseLsb = ToInt32(SampleDeviation(codes, average))};
}

ExactStatistics ComputeExactStatistics(std::span<const double> codes) {
    CheckNotEmpty(codes);
    const double mean =
        std::accumulate(codes.begin(), codes.end(), 0.0) / static_cast<double>(codes.size());
    return {mean, SampleDeviation(codes, mean)};
}

}  // namespace vx3260
