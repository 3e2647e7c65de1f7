// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/PlotCsv.h"

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

}  // namespace vx3260
