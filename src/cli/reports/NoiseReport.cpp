// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/NoiseReport.h"

#include <algorithm>
#include <optional>

#include "analysis/NoiseTexts.h"
#include "analysis/ReadingTexts.h"
#include "cli/reports/ConditionValues.h"
#include "cli/reports/JsonText.h"
#include "cli/reports/ReportedConditions.h"
#include "files/JsonFields.h"
#include "numbers/Columns.h"

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
        figureWidth = std::max(figureWidth, text.volts.empty() ? 0 : CharactersOf(text.figure) + 2);
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

QJsonValue ValueOf(std::optional<double> figure) {
    return figure ? QJsonValue(*figure) : QJsonValue(QJsonValue::Null);
}

std::optional<double> Times(std::optional<double> figure, double factor) {
    return figure ? std::optional(*figure * factor) : std::nullopt;
}

void Insert(QJsonObject& values, const QString& name, const std::optional<ResolutionBits>& figure) {
    const bool measured = figure && figure->limits;
    values[name + "Bits"] = ValueOf(figure ? std::optional(figure->bits) : std::nullopt);
    values[name + "IsLowerBound"] = figure ? QJsonValue(figure->isLowerBound) : QJsonValue();
    if (name != "noiseFreeResolution") {
        values[name + "BitsLow"] =
            ValueOf(measured ? std::optional(figure->limits->low) : std::nullopt);
        values[name + "BitsHigh"] =
            ValueOf(measured ? std::optional(figure->limits->high) : std::nullopt);
    }
}

QJsonValue NameOf(NormalityTest test) {
    switch (test) {
        case NormalityTest::DAgostinoPearson:
            return "dagostino-pearson";
        case NormalityTest::ChiSquare:
            return "chi-square";
        default:
            return {};
    }
}

void InsertShape(QJsonObject& values, const NoiseAnalysis& analysis) {
    const BlockShape& shape = analysis.shape;
    values["normalMeanCodes"] = analysis.normal.mean;
    values["normalSigmaCodes"] = analysis.normal.sigma;
    values["skewness"] = ValueOf(shape.moments.skewness);
    values["excessKurtosis"] = ValueOf(shape.moments.excessKurtosis);
    values["lag1Autocorrelation"] = ValueOf(shape.moments.lag1Autocorrelation);
    values["normalityP"] = ValueOf(shape.normalityP);
    values["normalityTest"] = NameOf(shape.test);
}

QJsonObject ValuesOf(const NoiseAnalysis& analysis) {
    const ConditionValues conditions = ConditionValuesOf(analysis.own);
    const Resolution& resolution = analysis.resolution;
    const std::optional<Interval>& limits = resolution.rmsNoiseLimits;
    const double lsb = conditions.lsbVolts;
    QJsonObject values{
        {"count", static_cast<qint64>(analysis.count)},
        {"referenceVoltage", conditions.referenceVoltage},
        {"inputRange", conditions.inputRange},
        {"polarity", QString::fromUtf8(conditions.polarity)},
        {"lsbVolts", lsb},
        {"codeBits", analysis.own.codeBits},
        {"codeStep", analysis.own.codeStep},
        {"maxCode", analysis.statistics.maxCode},
        {"minCode", analysis.statistics.minCode},
        {"spanCodes", analysis.span},
        {"meanCodes", analysis.exact.mean},
        {"signedMeanCodes", analysis.exact.mean - conditions.zeroCode},
        {"meanVolts", conditions.VoltsOf(analysis.exact.mean)},
        {"sigmaCodes", ValueOf(resolution.rmsNoise)},
        {"sigmaCodesLow", ValueOf(limits ? std::optional(limits->low) : std::nullopt)},
        {"sigmaCodesHigh", ValueOf(limits ? std::optional(limits->high) : std::nullopt)},
        {"sigmaVolts", ValueOf(Times(resolution.rmsNoise, lsb))},
        {"standardErrorCodes", ValueOf(resolution.standardError)},
        {"standardErrorVolts", ValueOf(Times(resolution.standardError, lsb))},
        {"estimatedPeakToPeakCodes", ValueOf(resolution.peakToPeak)},
        {"estimatedPeakToPeakVolts", ValueOf(Times(resolution.peakToPeak, lsb))},
        {"peakToPeakVolts", analysis.span * lsb},
        {"averageVolts", conditions.VoltsOf(analysis.exact.mean)},
    };
    Insert(values, "effectiveResolution", resolution.effective);
    Insert(values, "noiseFreeResolutionFromSigma", resolution.noiseFreeFromSigma);
    Insert(values, "noiseFreeResolution", resolution.noiseFree);
    InsertShape(values, analysis);
    return values;
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
    return JsonText({
        {"board", BoardValue(contents.board)},
        {"converter", ConverterValue(analysis.own.converter)},
        {"texts", LabelTexts(analysis)},
        {"values", ValuesOf(analysis)},
        {"warnings", WarningsValue(contents.warnings)},
        {"conditions", ReadingValue(contents.reading)},
    });
}

}  // namespace vx3260
