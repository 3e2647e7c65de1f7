// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseAnalysis.h"

#include "numbers/Conversions.h"

namespace vx3260 {

NoiseAnalysis AnalyseNoise(std::span<const double> codes, const ConversionConditions& present,
                           const std::optional<ConversionConditions>& own) {
    const ConversionConditions conditions = own.value_or(present);
    const BlockStatistics statistics = ComputeStatistics(codes);
    const ExactStatistics exact = ComputeExactStatistics(codes);
    const std::int32_t span = Difference(statistics.maxCode, statistics.minCode);
    return {.conditions = present,
            .own = conditions,
            .count = codes.size(),
            .statistics = statistics,
            .span = span,
            .averageCode = ToInt32(statistics.averageCode),
            .exact = exact,
            .resolution = ComputeResolution(codes.size(), exact.sigma, span, conditions.codeBits)};
}

}  // namespace vx3260
