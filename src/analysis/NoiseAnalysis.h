// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/ConversionConditions.h"
#include "analysis/NoiseStatistics.h"
#include "analysis/Resolution.h"
#include "app/MessageBoxes.h"

namespace vx3260 {

/// How many codes an analysis takes.
inline constexpr std::int16_t LeastCodesForAnalysis = 10;
inline constexpr std::int16_t MostCodesForAnalysis = 5000;

constexpr bool CountFitsAnalysis(std::int32_t count) {
    return count >= LeastCodesForAnalysis && count <= MostCodesForAnalysis;
}

/// Shown for any other count. It names 9 as allowed although 9 is refused; kept as designed.
inline constexpr std::string_view CountRefusal =
    "For Data Analysis the number of Codes read must be between 9 and 5000";

/// Shows the refusal where the count does not fit.
bool RefusedByCount(MessageBoxes& messages, std::int32_t count);

/// One figure of the noise forms.
struct NoiseFigure {
    std::string_view frame;    ///< caption of the frame it stands in
    std::string_view label;    ///< name of the label that shows it
    std::string_view caption;  ///< caption beside that label
};

inline constexpr std::array NoiseFigures{
    NoiseFigure{"Conditions", "CodesLabel", "Codes Read"},
    NoiseFigure{"Conditions", "RangeLabel", "Input Range"},
    NoiseFigure{"Conditions", "LSBLabel", "LSB Size"},
    NoiseFigure{"Conditions", "RefLabel", "Ref. Voltage"},
    NoiseFigure{"Results", "RMSLabel", "RMS Noise"},
    NoiseFigure{"Results", "PkPkLabel", "Pk to Pk Noise"},
    NoiseFigure{"Results", "AvValueLabel", "Average Value"},
    NoiseFigure{"Results in LSB's", "RMSLabelLSB", "RMS Noise"},
    NoiseFigure{"Results in LSB's", "AverageLabel", "Average Code"},
    NoiseFigure{"Results in LSB's", "SpanLabel", "Code Span"},
    NoiseFigure{"Results in LSB's", "MaxLabel", "Max Code"},
    NoiseFigure{"Results in LSB's", "MinLabel", "Min Code"},
};

/// The labels' texts, in the order of NoiseFigures.
using NoiseTexts = std::array<std::string, NoiseFigures.size()>;

struct NoiseAnalysis {
    ConversionConditions conditions;
    std::size_t count;
    BlockStatistics statistics;
    ExactStatistics exact;
    Resolution resolution;
    NoiseTexts texts;
};

/// Analyses a block. Throws as ComputeStatistics does, and OverflowError when the code span does
/// not fit 32 bits, as that of codes that end in a time-out does not.
NoiseAnalysis AnalyseNoise(std::span<const double> codes, const ConversionConditions& conditions);

/// A block with what its analysis found: what the plots draw.
struct AnalysedBlock {
    std::vector<double> codes;
    NoiseAnalysis analysis;
};

}  // namespace vx3260
