#include "analysis/PlotCsv.h"

#include <gtest/gtest.h>

namespace vx3260 {
namespace {

NoiseAnalysis AnalysisOf(const std::vector<double>& codes) {
    return AnalyseNoise(codes, AuxConditions(2.5F, AuxFullScale::Reference, Polarity::Bipolar));
}

std::string CsvOf(const std::vector<double>& codes, std::size_t mostBins) {
    return HistogramCsv(ComputeHistogram(codes, mostBins), AnalysisOf(codes).exact, codes.size());
}

TEST(PlotCsv, ListsBins) {
    const std::string header = "first_code,last_code,count,expected_count\n";
    EXPECT_EQ(CsvOf({9, 9}, 10), header + "9,9,2,\n");
    const std::string csv = CsvOf({-3, 0, 1, 2}, 2);
    EXPECT_EQ(csv.substr(0, csv.find('.')), header + "-5,-1,1,1");
    const auto secondLine = csv.find("\n0,4,3,") + 1;
    const double expected = std::stod(csv.substr(secondLine + std::string("0,4,3,").size()));
    EXPECT_EQ(expected, NormalCount(2, AnalysisOf({-3, 0, 1, 2}).exact, 4, 5)) << "to the last bit";
    EXPECT_EQ(csv.back(), '\n');
}

TEST(PlotCsv, ListsReadings) {
    const std::vector<double> codes{32768, 32769, 10000000, 0};
    EXPECT_EQ(CodesCsv({codes, AnalysisOf(codes)}),
              "reading,code,volts\n"
              "1,32768,0\n"
              "2,32769,7.62939453125e-05\n"
              "3,10000000,760.439453125\n"
              "4,0,-2.5\n");
}

}  // namespace
}  // namespace vx3260
