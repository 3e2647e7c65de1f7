#include "cli/NoiseReport.h"

#include <algorithm>

#include "cli/Command.h"
#include "cli/JsonText.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

std::size_t WidestCaption() {
    return std::max_element(
               NoiseFigures.begin(), NoiseFigures.end(),
               [](const auto& a, const auto& b) { return a.caption.size() < b.caption.size(); })
        ->caption.size();
}

/// 2.56 in single precision is 2.55999994...; as the number it was meant to be.
double AsEntered(float value) {
    return TextToDouble(ShortestText(value));
}

QJsonObject TextsOf(const NoiseAnalysis& analysis) {
    QJsonObject texts;
    for (std::size_t i = 0; i < NoiseFigures.size(); ++i) {
        texts[ToQString(NoiseFigures[i].label)] = ToQString(analysis.texts[i]);
    }
    return texts;
}

QJsonObject ValuesOf(const NoiseAnalysis& analysis) {
    const ConversionConditions& conditions = analysis.conditions;
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
        {"peakToPeakVolts", span * lsb},
        {"averageVolts", (analysis.exact.mean - conditions.zeroCode) * lsb},
    };
}

}  // namespace

std::string NoiseText(const NoiseAnalysis& analysis) {
    const std::size_t width = WidestCaption() + 2;
    std::string text;
    std::string_view frame;
    for (std::size_t i = 0; i < NoiseFigures.size(); ++i) {
        const NoiseFigure& figure = NoiseFigures[i];
        if (figure.frame != frame) {
            frame = figure.frame;
            text += std::string(frame) + "\n";
        }
        text += "  " + std::string(figure.caption) +
                std::string(width - figure.caption.size(), ' ') + analysis.texts[i] + "\n";
    }
    return text;
}

std::string NoiseJson(const NoiseAnalysis& analysis, Converter converter, std::string_view board) {
    return JsonText({
        {"board", BoardValue(board)},
        {"converter", ToQString(CommandLineName(converter))},
        {"texts", TextsOf(analysis)},
        {"values", ValuesOf(analysis)},
    });
}

}  // namespace vx3260
