// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "cli/CliRun.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

class HistogramOf : public testing::Test {
  protected:
    Outcome Run(const std::string& bytes, const std::string& more = "", std::size_t width = 80) {
        return RunProgram("histogram " + more + " " + folder.Make("f.dat", bytes), width);
    }

    Folder folder;
};

std::string Repeated(const std::string& line, int count) {
    std::string lines;
    for (int i = 0; i < count; ++i) {
        lines += line;
    }
    return lines;
}

TEST_F(HistogramOf, TextHasABarForEachBin) {
    const Outcome outcome =
        Run(Repeated("8000\n", 100) + Repeated("8001\n", 48) + "8003\n", "aux --hex", 42);
    EXPECT_EQ(outcome.exitCode, ExitCode::Success);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(outcome.out.starts_with("Aux ADC Histogram\n  File        " + folder.Path("")));
    EXPECT_TRUE(
        outcome.out.ends_with("f.dat\n"
                              "  Codes Read  149\n"
                              "  Bin Width   1 code\n"
                              "  Mean        32768.342, marked >\n"
                              "  Sigma       0.516901\n"
                              "\n"
                              "  First Code          Count\n"
                              ">      32768  0x8000    100  █████████████\n"
                              "       32769  0x8001     48  ██████▎\n"
                              "       32770  0x8002      0\n"
                              "       32771  0x8003      1  ▏\n"))
        << outcome.out;
    const std::string wide =
        "\n  -5000000000                1  ██████████\n>           0  0x000000      1  █";
    EXPECT_TRUE(Has(Run("-2147483647\n2147483647\n", "main --force --bins 2", 5).out, wide));
}

TEST_F(HistogramOf, LargestBlockIsCounted) {
    EXPECT_TRUE(Has(Run(Repeated("7\n8\n", 16383) + "7", "main --format csv").out, "7,7,16384,"));
}

}  // namespace
}  // namespace vx3260::test
