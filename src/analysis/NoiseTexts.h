// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/NoiseAnalysis.h"

/// The captions and texts of the noise figures, for the forms and the command line alike.
namespace vx3260 {

/// The figures above the frame "Resolution".
enum class NoiseFigure {
    CodesRead,
    InputRange,
    LsbSize,
    ReferenceVoltage,
    RmsNoise,
    PeakToPeakNoise,
    AverageValue,
    RmsNoiseLsb,
    AverageCode,
    CodeSpan,
    MaxCode,
    MinCode
};

/// Where a figure stands.
struct NoiseRow {
    NoiseFigure figure;
    std::string_view frame;    ///< caption of the frame it stands in
    std::string_view label;    ///< name of the label that shows it
    std::string_view caption;  ///< caption beside that label
};

/// Caption of the frame that also says how the block was read.
inline constexpr std::string_view ConditionsFrame = "Conditions";

/// In the order of the forms.
inline constexpr std::array NoiseRows{
    NoiseRow{NoiseFigure::CodesRead, ConditionsFrame, "CodesLabel", "Codes Read"},
    NoiseRow{NoiseFigure::InputRange, ConditionsFrame, "RangeLabel", "Input Range"},
    NoiseRow{NoiseFigure::LsbSize, ConditionsFrame, "LSBLabel", "LSB Size"},
    NoiseRow{NoiseFigure::ReferenceVoltage, ConditionsFrame, "RefLabel", "Ref. Voltage"},
    NoiseRow{NoiseFigure::RmsNoise, "Results", "RMSLabel", "RMS Noise"},
    NoiseRow{NoiseFigure::PeakToPeakNoise, "Results", "PkPkLabel", "Pk to Pk Noise"},
    NoiseRow{NoiseFigure::AverageValue, "Results", "AvValueLabel", "Average Value"},
    NoiseRow{NoiseFigure::RmsNoiseLsb, "Results in LSB's", "RMSLabelLSB", "RMS Noise"},
    NoiseRow{NoiseFigure::AverageCode, "Results in LSB's", "AverageLabel", "Average Code"},
    NoiseRow{NoiseFigure::CodeSpan, "Results in LSB's", "SpanLabel", "Code Span"},
    NoiseRow{NoiseFigure::MaxCode, "Results in LSB's", "MaxLabel", "Max Code"},
    NoiseRow{NoiseFigure::MinCode, "Results in LSB's", "MinLabel", "Min Code"},
};

/// What the figure's label shows.
std::string TextOf(const NoiseAnalysis& analysis, NoiseFigure figure);

/// The number of a figure that is shown in hexadecimal; nothing for the others.
std::optional<std::int32_t> HexNumberOf(const NoiseAnalysis& analysis, NoiseFigure figure);

/// The input range by its name: "± 20 mV", "2.56V", "REFIN2 / 2".
std::string RangeText(const ConversionConditions& conditions);

/// Caption of the frame of the figures below.
inline constexpr std::string_view ResolutionFrame = "Resolution";

enum class ResolutionFigure { Readings, RmsNoise, StandardError, PeakToPeak, Effective, NoiseFree };

/// One row of that frame. `voltsLabel` is the name of the label that shows the figure in volts,
/// empty where there is none.
struct ResolutionRow {
    ResolutionFigure figure;
    std::string_view caption;
    std::string_view label;  ///< name of the label that shows the figure
    std::string_view voltsLabel{};
};

inline constexpr std::array ResolutionRows{
    ResolutionRow{ResolutionFigure::Readings, "Readings N", "ReadingsLabel"},
    ResolutionRow{ResolutionFigure::RmsNoise, "RMS Noise (divisor N - 1)", "ExactRMSLabelLSB",
                  "ExactRMSLabel"},
    ResolutionRow{ResolutionFigure::StandardError, "Std. Error of the Mean", "StdErrorLabelLSB",
                  "StdErrorLabel"},
    ResolutionRow{ResolutionFigure::PeakToPeak, "Est. Pk to Pk (6.6 sigma)", "EstPkPkLabelLSB",
                  "EstPkPkLabel"},
    ResolutionRow{ResolutionFigure::Effective, "Effective Resolution", "EffectiveLabel"},
    ResolutionRow{ResolutionFigure::NoiseFree, "Noise-Free Resolution", "NoiseFreeLabel"},
};

struct ResolutionText {
    std::string figure;
    std::string volts{};  ///< empty where the row has none
};

/// What the row's labels show.
ResolutionText TextOf(const NoiseAnalysis& analysis, ResolutionFigure figure);

}  // namespace vx3260
