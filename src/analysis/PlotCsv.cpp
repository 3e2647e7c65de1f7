// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/PlotCsv.h"

#include <initializer_list>

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

std::string ExpectedText(const Histogram& histogram, std::size_t bin, const NormalFit& fit,
                         std::size_t readings) {
    return fit.sigma == 0 ? ""
                          : ShortestText(NormalCount(histogram.CentreOf(bin), fit, readings,
                                                     histogram.binWidth));
}

/// A line of numbers.
std::string Line(std::initializer_list<double> numbers) {
    std::string line;
    for (const double number : numbers) {
        line += (line.empty() ? "" : ",") + ShortestText(number);
    }
    return line + '\n';
}

}  // namespace

std::string HistogramCsv(const Histogram& histogram, const NormalFit& fit, std::size_t readings) {
    std::string csv = "first_code,last_code,count,expected_count\n";
    for (std::size_t bin = 0; bin < histogram.counts.size(); ++bin) {
        csv += std::to_string(histogram.FirstCodeOf(bin)) + ',' +
               std::to_string(histogram.LastCodeOf(bin)) + ',' +
               std::to_string(histogram.counts[bin]) + ',' +
               ExpectedText(histogram, bin, fit, readings) + '\n';
    }
    return csv;
}

std::string CodesCsv(const AnalysedBlock& block) {
    std::string csv = "reading,code,volts\n";
    for (std::size_t i = 0; i < block.codes.size(); ++i) {
        csv += std::to_string(i + 1) + ',' + std::to_string(ToInt32(block.codes[i])) + ',' +
               ShortestText(block.analysis.own.VoltsOf(block.codes[i])) + '\n';
    }
    return csv;
}

std::string SpectrumCsv(const Spectrum& spectrum, const CodeScale& scale, TimeUnit unit) {
    std::string csv = unit == TimeUnit::Second
                          ? "frequency_hz,density_v_per_rthz,density_lsb_per_rthz\n"
                          : "cycles_per_reading,density_v,density_lsb\n";
    for (std::size_t k = 0; k < spectrum.density.size(); ++k) {
        const double density = spectrum.density[k];
        csv += Line({spectrum.frequencies[k], density * scale.volts, density * scale.lsb});
    }
    return csv;
}

std::string StabilityCsv(std::span<const AllanPoint> points, double rate, const CodeScale& scale,
                         TimeUnit unit) {
    std::string csv = unit == TimeUnit::Second ? "tau_s" : "readings";
    csv += ",deviation_v,low_v,high_v,deviation_lsb\n";
    for (const AllanPoint& point : points) {
        csv +=
            Line({static_cast<double>(point.factor) / rate, point.deviation * scale.volts,
                  point.low * scale.volts, point.high * scale.volts, point.deviation * scale.lsb});
    }
    return csv;
}

}  // namespace vx3260
