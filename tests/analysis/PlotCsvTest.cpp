// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/PlotCsv.h"

#include <gtest/gtest.h>

namespace vx3260 {
namespace {

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
