// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/NoiseReport.h"

#include <algorithm>

#include "analysis/NoiseTexts.h"
#include "analysis/ReadingTexts.h"
#include "cli/reports/Columns.h"
#include "cli/reports/ConditionValues.h"
#include "cli/reports/ConverterName.h"
#include "cli/reports/JsonText.h"
#include "files/ConditionsFile.h"

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
    std::size_t figureWidth = 0;
    for (const ResolutionRow& row : ResolutionRows) {
        const ResolutionText text = TextOf(analysis, row.figure);
        figureWidth = std::max(figureWidth, text.volts.empty() ? 0 : text.figure.size() + 2);
    }
    std::string lines = std::string(ResolutionFrame) + "\n";
    for (const ResolutionRow& row : ResolutionRows) {
        lines += "  " + Padded(row.caption, CaptionWidth(ResolutionRows)) +
                 FigureAndVolts(TextOf(analysis, row.figure), figureWidth) + "\n";
    }
    return lines;
}

std::string Line(std::string_view caption, std::size_t width, std::string_view text) {
    return "  " + Padded(caption, width) + std::string(text) + "\n";
}

std::string LinesAbout(const std::optional<BlockConditions>& reading, std::size_t width) {
    std::string lines;
    for (const std::string& line : ReadingLines(reading)) {
        lines += Line(lines.empty() ? "Reading" : "", width, line);
    }
    return lines;
}

QJsonObject LabelTexts(const NoiseAnalysis& analysis) {
    QJsonObject texts;
    for (const NoiseRow& row : NoiseRows) {
        texts[QString::fromUtf8(row.label)] = QString::fromUtf8(TextOf(analysis, row.figure));
    }
    for (const ResolutionRow& row : ResolutionRows) {
        const ResolutionText text = TextOf(analysis, row.figure);
        texts[QString::fromUtf8(row.label)] = QString::fromUtf8(text.figure);
        if (!row.voltsLabel.empty()) {
            texts[QString::fromUtf8(row.voltsLabel)] = QString::fromUtf8(text.volts);
        }
    }
    return texts;
}

QJsonObject ValuesOf(const NoiseAnalysis& analysis) {
    const ConditionValues conditions = ConditionValuesOf(analysis.own);
    const Resolution& resolution = analysis.resolution;
    const double lsb = conditions.lsbVolts;
    return {
        {"count", static_cast<qint64>(analysis.count)},
        {"referenceVoltage", conditions.referenceVoltage},
        {"inputRange", conditions.inputRange},
        {"polarity", QString::fromUtf8(conditions.polarity)},
        {"lsbVolts", lsb},
        {"maxCode", analysis.statistics.maxCode},
        {"minCode", analysis.statistics.minCode},
        {"spanCodes", analysis.span},
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
        {"peakToPeakVolts", analysis.span * lsb},
        {"averageVolts", conditions.VoltsOf(analysis.exact.mean)},
    };
}

}  // namespace

std::string NoiseText(const NoiseReportContents& contents) {
    const std::size_t width = CaptionWidth(NoiseRows);
    std::string text;
    std::string_view frame;
    for (const NoiseRow& row : NoiseRows) {
        if (row.frame != frame) {
            text += frame == ConditionsFrame ? LinesAbout(contents.reading, width) : "";
            frame = row.frame;
            text += std::string(frame) + "\n";
        }
        text += Line(row.caption, width, TextOf(contents.analysis, row.figure));
    }
    return text + ResolutionLines(contents.analysis);
}

std::string NoiseJson(const NoiseReportContents& contents) {
    const NoiseAnalysis& analysis = contents.analysis;
    const Converter converter = analysis.own.converter;
    return JsonText({
        {"board", BoardValue(contents.board)},
        {"converter", QString::fromUtf8(CommandLineName(converter))},
        {"texts", LabelTexts(analysis)},
        {"values", ValuesOf(analysis)},
        {"conditions",
         contents.reading ? QJsonValue(ConditionsObject(*contents.reading)) : QJsonValue()},
    });
}

}  // namespace vx3260
