#include <gtest/gtest.h>

#include "cli/CliRun.h"

namespace vx3260::test {
namespace {

TEST(RegistersCommand, TextHasALineForEachRegisterAndField) {
    const Outcome outcome = RunProgram("--simulated registers");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.err, "Simulated board\n");
    for (const char* const line : {
             "status             0x01      Status Register\n  rdy0             no\n",
             "\nmode               0x03      Mode Register\n",
             "\n  mode             continuous\n",
             "\n  range            2.56V\n",
             "\n  channel          temperature\n",
             "\n  word             69 (19.7874 Hz)\n",
             "\nio-control         0x0004    I/O Control Register\n",
             "\nmain-zero          0x800000  Main Zero",
             "\naux-full           0x4000    Aux Full",
             "\n  value            16384\n",
         }) {
        EXPECT_TRUE(Has(outcome.out, line));
    }
}

TEST(RegistersCommand, JsonIsKeyedByName) {
    const QJsonObject report = Parsed(RunProgram("--simulated registers --format json"));
    EXPECT_EQ(report.size(), 11);
    EXPECT_EQ(report["board"].toString(), "Simulated board");
    EXPECT_EQ(report["aux-control"]["value"].toInt(), 0xB9);
    EXPECT_EQ(report["aux-control"]["hex"].toString(), "0xB9");
    EXPECT_EQ(report["aux-control"]["fields"]["polarity"].toString(), "unipolar");
    EXPECT_EQ(report["filter"]["fields"]["word"].toInt(), 69);
    EXPECT_NEAR(report["filter"]["updateRateHz"].toDouble(), 19.7874396, 1e-7);
    EXPECT_EQ(report["main-zero"]["fields"]["value"].toInt(), 8388608);
}

TEST(RegistersCommand, ABoardThatDoesNotAnswerIsToldFromOneThatDoes) {
    for (const char* const fault : {"board-gone=0", "dout-stuck-low"}) {
        const Outcome outcome = RunProgram(std::string("registers --simulated --fault ") + fault);
        EXPECT_EQ(outcome.exitCode, static_cast<int>(ExitCode::NoAnswer));
        EXPECT_TRUE(Has(outcome.err, "every register reads the same. All bits read "));
        EXPECT_TRUE(Has(outcome.out, "filter "));
    }
    ExpectRefused(ExitCode::NoAnswer, {{"registers", "no printer port"}});
}

}  // namespace
}  // namespace vx3260::test
