#include "analysis/PlotCsv.h"

#include <gtest/gtest.h>

namespace vx3260 {
namespace {

TEST(PlotCsv, ListsBins) {
    const std::vector<double> codes{-3, 0, 1, 2};
    const ExactStatistics exact = ComputeExactStatistics(codes);
    const std::string csv = HistogramCsv(ComputeHistogram(codes, 2), exact, codes.size());
    const std::string header = "first_code,last_code,count,expected_count\n";
    EXPECT_EQ(csv.substr(0, csv.find('.')), header + "-5,-1,1,1");
    const std::string second = "\n0,4,3,";
    const double expected = std::stod(csv.substr(csv.find(second) + second.size()));
    EXPECT_EQ(expected, NormalCount(2, exact, 4, 5)) << "to the last bit";
    EXPECT_EQ(csv.back(), '\n');
}

TEST(PlotCsv, ListsReadings) {
    const std::vector<double> codes{32768, 32769, 10000000, 0};
    EXPECT_EQ(CodesCsv({codes, AnalyseNoise(codes, AuxConditions(2.5F, AuxFullScale::Reference,
                                                                 Polarity::Bipolar))}),
              "reading,code,volts\n"
              "1,32768,0\n"
              "2,32769,7.62939453125e-05\n"
              "3,10000000,760.439453125\n"
              "4,0,-2.5\n");
}

}  // namespace
}  // namespace vx3260
