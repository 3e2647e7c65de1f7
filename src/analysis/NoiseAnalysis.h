// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "analysis/BlockShape.h"
#include "analysis/BlockWarnings.h"
#include "analysis/ConversionConditions.h"
#include "analysis/NoiseStatistics.h"
#include "analysis/NormalFit.h"
#include "analysis/Resolution.h"

namespace vx3260 {

/// How many codes can be analysed.
inline constexpr std::int16_t MinCodesForAnalysis = 10;
inline constexpr std::int16_t MaxCodesForAnalysis = 5000;

constexpr bool CountFitsAnalysis(std::int64_t count) {
    return count >= MinCodesForAnalysis && count <= MaxCodesForAnalysis;
}

struct NoiseAnalysis {
    ConversionConditions conditions;  ///< those of the chip at present, for the texts of NoiseRows
    ConversionConditions own;         ///< those of the block where they are known, for all others
    std::size_t count;
    BlockStatistics statistics;
    std::int32_t span;         ///< largest minus smallest code
    std::int32_t averageCode;  ///< statistics.averageCode rounded, halves to even
    ExactStatistics exact;
    NormalFit normal;
    BlockShape shape;
    Resolution resolution;
};

/// Analyses a block. `own` are the conditions that it was read under; where they are unknown, those
/// at present are taken. Codes between the steps of the 16-bit word length show that the main ADC
/// had 24 bits, whatever the conditions are. Throws as ComputeStatistics does, and OverflowError
/// when the code span or the rounded average does not fit 32 bits; the span of codes that end in a
/// time-out does not.
NoiseAnalysis AnalyseNoise(std::span<const double> codes, const ConversionConditions& present,
                           const std::optional<ConversionConditions>& own = std::nullopt);

/// A block and its analysis, as the plots draw it.
struct AnalysedBlock {
    std::vector<double> codes;
    NoiseAnalysis analysis;
    std::optional<BlockConditions> reading{};  ///< how it was read; empty where unknown

    /// Seconds from one reading to the next, where known.
    std::optional<double> Interval() const { return reading ? reading->Interval() : std::nullopt; }
};

/// WarningsAbout the block.
std::vector<BlockWarning> WarningsOf(const AnalysedBlock& block);

}  // namespace vx3260
