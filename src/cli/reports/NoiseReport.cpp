// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/NoiseReport.h"

#include <algorithm>

#include "cli/reports/Columns.h"
#include "cli/reports/ConverterName.h"
#include "cli/reports/JsonText.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

template <typename Rows>
std::size_t CaptionWidth(const Rows& rows) {
    std::size_t width = 0;
    for (const auto& row : rows) {
        width = std::max(width, row.caption.size());
    }
    return width + 2;
}

/// The volts, where there are any, in a column of their own.
std::string FigureAndVolts(const ResolutionText& text, std::size_t figureWidth) {
    return text.volts.empty() ? text.figure : Padded(text.figure, figureWidth) + text.volts;
}

std::string ResolutionLines(const NoiseAnalysis& analysis) {
    const ResolutionTexts texts = TextsOf(analysis.resolution, analysis.conditions.lsbVolts);
    std::size_t figureWidth = 0;
    for (const ResolutionText& text : texts) {
        figureWidth = std::max(figureWidth, text.volts.empty() ? 0 : text.figure.size() + 2);
    }
    std::string lines = std::string(ResolutionFrame) + "\n";
    for (std::size_t i = 0; i < texts.size(); ++i) {
        lines += "  " + Padded(ResolutionRows[i].caption, CaptionWidth(ResolutionRows)) +
                 FigureAndVolts(texts[i], figureWidth) + "\n";
    }
    return lines;
}

/// The shortest decimal number of the same single-precision value: 2.56, not 2.55999994.
double AsEntered(float value) {
    return TextToDouble(ShortestText(value));
}

QJsonObject LabelTexts(const NoiseAnalysis& analysis) {
    QJsonObject texts;
    for (std::size_t i = 0; i < NoiseFigures.size(); ++i) {
        texts[QString::fromUtf8(NoiseFigures[i].label)] = QString::fromUtf8(analysis.texts[i]);
    }
    const ResolutionTexts resolution = TextsOf(analysis.resolution, analysis.conditions.lsbVolts);
    for (std::size_t i = 0; i < ResolutionRows.size(); ++i) {
        texts[QString::fromUtf8(ResolutionRows[i].label)] = QString::fromUtf8(resolution[i].figure);
        if (!ResolutionRows[i].voltsLabel.empty()) {
            texts[QString::fromUtf8(ResolutionRows[i].voltsLabel)] =
                QString::fromUtf8(resolution[i].volts);
        }
    }
    return texts;
}

QJsonObject ValuesOf(const NoiseAnalysis& analysis) {
    const ConversionConditions& conditions = analysis.conditions;
    const Resolution& resolution = analysis.resolution;
    const double reference = AsEntered(conditions.referenceVoltage);
    const double lsb = conditions.lsbVolts / conditions.referenceVoltage * reference;
    // AnalyseNoise has seen to it that the span fits.
    const std::int32_t span = analysis.statistics.maxCode - analysis.statistics.minCode;
    return {
        {"count", static_cast<qint64>(analysis.count)},
        {"referenceVoltage", reference},
        {"inputRange", AsEntered(conditions.inputRange)},
        {"polarity", conditions.polarity == Polarity::Unipolar ? "unipolar" : "bipolar"},
        {"lsbVolts", lsb},
        {"maxCode", analysis.statistics.maxCode},
        {"minCode", analysis.statistics.minCode},
        {"spanCodes", span},
        {"meanCodes", analysis.exact.mean},
        {"sigmaCodes", analysis.exact.sigma},
        {"sigmaVolts", analysis.exact.sigma * lsb},
        {"standardErrorCodes", resolution.standardError},
        {"standardErrorVolts", resolution.standardError * lsb},
        {"estimatedPeakToPeakCodes", resolution.peakToPeak},
        {"estimatedPeakToPeakVolts", resolution.peakToPeak * lsb},
        {"effectiveResolutionBits", resolution.effective.bits},
        {"effectiveResolutionIsLowerBound", resolution.effective.isLowerBound},
        {"noiseFreeResolutionBits", resolution.noiseFree.bits},
        {"noiseFreeResolutionIsLowerBound", resolution.noiseFree.isLowerBound},
        {"peakToPeakVolts", span * lsb},
        {"averageVolts", (analysis.exact.mean - conditions.zeroCode) * lsb},
    };
}

}  // namespace

std::string NoiseText(const NoiseAnalysis& analysis) {
    const std::size_t width = CaptionWidth(NoiseFigures);
    std::string text;
    std::string_view frame;
    for (std::size_t i = 0; i < NoiseFigures.size(); ++i) {
        const NoiseFigure& figure = NoiseFigures[i];
        if (figure.frame != frame) {
            frame = figure.frame;
            text += std::string(frame) + "\n";
        }
        text += "  " + Padded(figure.caption, width) + analysis.texts[i] + "\n";
    }
    return text + ResolutionLines(analysis);
}

std::string NoiseJson(const NoiseAnalysis& analysis, Converter converter, std::string_view board) {
    return JsonText({
        {"board", BoardValue(board)},
        {"converter", QString::fromUtf8(CommandLineName(converter))},
        {"texts", LabelTexts(analysis)},
        {"values", ValuesOf(analysis)},
    });
}

}  // namespace vx3260
