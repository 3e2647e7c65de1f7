// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseAnalysis.h"

#include "numbers/Conversions.h"

namespace vx3260 {

NoiseAnalysis AnalyseNoise(std::span<const double> codes, const ConversionConditions& conditions) {
    const BlockStatistics statistics = ComputeStatistics(codes);
    const ExactStatistics exact = ComputeExactStatistics(codes);
    const std::int32_t span = Difference(statistics.maxCode, statistics.minCode);
    return {.conditions = conditions,
            .count = codes.size(),
            .statistics = statistics,
            .span = span,
            .averageCode = ToInt32(statistics.averageCode),
            .exact = exact,
            .resolution = ComputeResolution(codes.size(), exact.sigma, span, conditions.Bits())};
}

}  // namespace vx3260
