// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/NoiseAnalysis.h"

#include <algorithm>
#include <cmath>

#include "numbers/Conversions.h"

namespace vx3260 {
namespace {

ConversionConditions WithStepOf(std::span<const double> codes, ConversionConditions conditions) {
    const double step = conditions.codeStep;
    if (step > 1 && std::any_of(codes.begin(), codes.end(),
                                [step](double code) { return std::fmod(code, step) != 0; })) {
        conditions.codeStep = 1;
        conditions.codeBits = TraitsOf(conditions.converter).data.wordLength;
    }
    return conditions;
}

}  // namespace

NoiseAnalysis AnalyseNoise(std::span<const double> codes, const ConversionConditions& present,
                           const std::optional<ConversionConditions>& own) {
    const ConversionConditions conditions = WithStepOf(codes, own.value_or(present));
    const int step = conditions.codeStep;
    const BlockStatistics statistics = ComputeStatistics(codes);
    const ExactStatistics exact = ComputeExactStatistics(codes);
    const std::int32_t span = Difference(statistics.maxCode, statistics.minCode);
    const NormalFit normal = FitNormal(codes, exact, step);
    return {.conditions = present,
            .own = conditions,
            .count = codes.size(),
            .statistics = statistics,
            .span = span,
            .averageCode = ToInt32(statistics.averageCode),
            .exact = exact,
            .normal = normal,
            .shape = ComputeShape(codes, exact, normal, step),
            .resolution =
                ComputeResolution(codes.size(), exact.sigma, span, conditions.codeBits, step)};
}

std::vector<BlockWarning> WarningsOf(const AnalysedBlock& block) {
    if (block.reading) {
        return WarningsAbout(block.codes, *block.reading);
    }
    return WarningsAbout(block.codes, block.analysis.own.converter,
                         {.codeStep = block.analysis.own.codeStep});
}

}  // namespace vx3260
