// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/SpectrumReport.h"

#include <QJsonArray>
#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/PlotCsv.h"
#include "analysis/UnitTexts.h"
#include "cli/reports/ConditionValues.h"
#include "cli/reports/JsonText.h"
#include "cli/reports/ReportedConditions.h"
#include "numbers/Columns.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

std::string TrendName(Trend trend) {
    return trend == Trend::Linear ? "linear" : "mean";
}

double NoiseBetween(const Spectrum& spectrum, std::size_t first, std::size_t last) {
    return IntegratedNoise(spectrum, spectrum.frequencies[first], spectrum.frequencies[last]);
}

/// Without the mean, which is removed or drifts.
double TotalNoise(const Spectrum& spectrum) {
    return NoiseBetween(spectrum, 1, spectrum.frequencies.size() - 1);
}

std::string MainsText(const FileSpectrum& analysed, const CodeScale& scale, double frequency) {
    const Spectrum& spectrum = analysed.spectrum;
    const std::size_t nearest = NearestFrequency(spectrum, frequency);
    return "at " + HertzText(frequency) + ", " +
           (nearest == 0 ? "where the mean is"
                         : VoltsPerRootHertzText(spectrum.density[nearest] * scale.volts));
}

std::string Heading(const FileSpectrum& analysed, const CodeScale& scale) {
    const Spectrum& spectrum = analysed.spectrum;
    std::vector<CaptionedText> rows{
        {"File", analysed.file},
        {"Codes Read", std::to_string(analysed.count)},
        {"Rate", HertzText(spectrum.rate)},
        {"Segments", std::to_string(spectrum.segments) + " of " +
                         CountText(static_cast<std::int64_t>(spectrum.segmentLength), "reading") +
                         ", half overlapped, Hann windows"},
        {"Removed", analysed.trend == Trend::Linear ? "linear trend" : "mean"},
        {"Resolution", HertzText(spectrum.Resolution())},
    };
    if (spectrum.density.empty()) {
        rows.emplace_back("RMS Noise", NotDefined);
    } else {
        const double noise = TotalNoise(spectrum);
        rows.emplace_back("RMS Noise", LsbText(noise * scale.lsb) + ", " +
                                           RmsText(noise * scale.volts) + ", from " +
                                           HertzText(spectrum.frequencies[1]) + " to " +
                                           HertzText(spectrum.frequencies.back()));
        for (const MainsLine& line : MainsLinesAt(spectrum.rate)) {
            rows.emplace_back("Mains, " + ShortestText(line.mains) + " Hz",
                              MainsText(analysed, scale, line.frequency));
        }
    }
    return std::string(TraitsOf(analysed.conditions.converter).name) + " ADC Spectrum\n" +
           CaptionedLines(rows);
}

/// The last number of the octave that begins there. The highest frequency belongs to the octave
/// below it.
std::size_t OctaveEnd(const Spectrum& spectrum, std::size_t first) {
    const std::size_t highest = spectrum.frequencies.size() - 1;
    return 2 * first >= highest ? highest : 2 * first - 1;
}

std::vector<std::string> OctaveRow(const Spectrum& spectrum, const CodeScale& scale,
                                   std::size_t first, std::size_t last) {
    const double noise = NoiseBetween(spectrum, first, last);
    const double width = static_cast<double>(last - first + 1) * spectrum.Resolution();
    const double density = noise / std::sqrt(width);
    return {HertzText(spectrum.frequencies[first]),
            HertzText(spectrum.frequencies[last]),
            VoltsPerRootHertzText(density * scale.volts),
            RoundedText(density * scale.lsb),
            RmsText(noise * scale.volts),
            LsbText(noise * scale.lsb)};
}

std::string Octaves(const Spectrum& spectrum, const CodeScale& scale) {
    std::vector<std::vector<std::string>> rows{
        {"From", "To", "Density", "LSB/√Hz", "RMS Noise", "in LSB"}};
    std::size_t last = 0;
    while (last + 1 < spectrum.frequencies.size()) {
        const std::size_t first = last + 1;
        last = OctaveEnd(spectrum, first);
        rows.push_back(OctaveRow(spectrum, scale, first, last));
    }
    return TableText(rows);
}

QJsonArray MainsValues(const Spectrum& spectrum, const CodeScale& scale) {
    QJsonArray values;
    for (const MainsLine& line : MainsLinesAt(spectrum.rate)) {
        const double density = spectrum.density[NearestFrequency(spectrum, line.frequency)];
        values.append(QJsonObject{{"mainsHz", line.mains},
                                  {"frequencyHz", line.frequency},
                                  {"densityVoltsPerRootHz", density * scale.volts}});
    }
    return values;
}

QJsonArray DensityValues(const Spectrum& spectrum, const CodeScale& scale) {
    QJsonArray values;
    for (std::size_t k = 0; k < spectrum.density.size(); ++k) {
        values.append(QJsonObject{{"frequencyHz", spectrum.frequencies[k]},
                                  {"densityVoltsPerRootHz", spectrum.density[k] * scale.volts},
                                  {"densityLsbPerRootHz", spectrum.density[k] * scale.lsb}});
    }
    return values;
}

}  // namespace

std::string SpectrumText(const FileSpectrum& analysed) {
    const CodeScale scale = ReportedScale(analysed.conditions);
    const std::string heading = Heading(analysed, scale);
    return analysed.spectrum.density.empty() ? heading
                                             : heading + "\n" + Octaves(analysed.spectrum, scale);
}

std::string SpectrumCsv(const FileSpectrum& analysed) {
    return SpectrumCsv(analysed.spectrum, ReportedScale(analysed.conditions), TimeUnit::Second);
}

std::string SpectrumJson(const FileSpectrum& analysed) {
    const Spectrum& spectrum = analysed.spectrum;
    const CodeScale scale = ReportedScale(analysed.conditions);
    const bool defined = !spectrum.density.empty();
    const double noise = defined ? TotalNoise(spectrum) : 0;
    QJsonObject object = ConditionsObject(analysed.conditions);
    object["count"] = static_cast<qint64>(analysed.count);
    object["rateHz"] = spectrum.rate;
    object["segmentLength"] = static_cast<qint64>(spectrum.segmentLength);
    object["segments"] = static_cast<qint64>(spectrum.segments);
    object["window"] = "hann";
    object["trend"] = QString::fromStdString(TrendName(analysed.trend));
    object["resolutionHz"] = spectrum.Resolution();
    object["integratedNoiseVolts"] = defined ? QJsonValue(noise * scale.volts) : QJsonValue();
    object["integratedNoiseLsb"] = defined ? QJsonValue(noise * scale.lsb) : QJsonValue();
    object["mains"] = defined ? MainsValues(spectrum, scale) : QJsonArray();
    object["values"] = DensityValues(spectrum, scale);
    object["warnings"] = WarningsValue(analysed.warnings);
    object["conditions"] = ReadingValue(analysed.reading);
    return JsonText(object);
}

}  // namespace vx3260
