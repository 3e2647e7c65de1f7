// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "cli/commands/CliRun.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

struct RecordCommandTest : testing::Test {
    Outcome Record(const std::string& arguments, const std::string& fault = "") {
        return RunProgram("--simulated " + (fault.empty() ? "" : "--fault " + fault + " ") +
                          "record " + arguments + " --output " + folder.Path("r.csv"));
    }
    Folder folder;
};

TEST_F(RecordCommandTest, RefusesWrongValues) {
    for (const char* arguments :
         {"main --duration 0s", "main --duration 3x", "main --every -1s", "main --count 0",
          "main --rotate 10B", "main --rotate 1MX", "main --append --force", "all"}) {
        EXPECT_EQ(Record(arguments).exitCode, ExitCode::WrongCommandLine) << arguments;
    }
    EXPECT_EQ(folder.Bytes("r.csv"), "");
}

TEST_F(RecordCommandTest, RecordsContinuesAndRefuses) {
    EXPECT_EQ(Record("both --count 3").exitCode, ExitCode::Success);
    const std::string first = folder.Bytes("r.csv");
    EXPECT_TRUE(first.starts_with("utc,elapsed_s,converter,code,volts,temperature_c\n# VX3260"));
    EXPECT_TRUE(Has(first, "# Main ADC: Read at \u00b1 2.56V, bipolar"));
    EXPECT_TRUE(Has(first, ",main,8438031,0.01508270,\n"));
    EXPECT_TRUE(Has(first, ",aux,7916,0.301971,28.821\n"));
    EXPECT_EQ(Record("both").exitCode, ExitCode::FileNotAccessible);
    EXPECT_EQ(Record("main --append").exitCode, ExitCode::FileNotAccessible);
    EXPECT_EQ(folder.Bytes("r.csv"), first);
    EXPECT_EQ(Record("both --count 3 --append").exitCode, ExitCode::Success);
    EXPECT_TRUE(Has(folder.Bytes("r.csv"), first + "# gap: continued at "));
    EXPECT_EQ(Record("main --duration 5s --every 1s --force").exitCode, ExitCode::Success);
    EXPECT_TRUE(Has(folder.Bytes("r.csv"), ",4.000000,main,19,84380"));
}

TEST_F(RecordCommandTest, IntervalsEndWithTheirTime) {
    Record("main --duration 30s --every 100ms", "board-gone=60000");
    const std::string outage = folder.Bytes("r.csv");
    const std::size_t comment = outage.find("Z time-out: ");
    EXPECT_LT(outage.rfind(",main,"), comment) << outage;
    Record("main --duration 4.5s --every 1s --force");
    const std::size_t before = folder.Bytes("r.csv").size();
    Record("main --duration 2s --every 1s --append");
    const std::string continued = folder.Bytes("r.csv").substr(before);
    EXPECT_TRUE(Has(continued, "Z,5.000000,main,")) << continued;
    EXPECT_TRUE(Has(continued, "Z,6.000000,main,")) << continued;
    EXPECT_FALSE(Has(continued, ",4.000000,")) << continued;
}

/// 9450 conversions at 105 a second.
TEST_F(RecordCommandTest, RotatesByTheBoardsClock) {
    const std::string script =
        "set mode mode=power-down\nset filter word=13\nrecord main "
        "--duration 90s --every 1s --rotate 30s --output " +
        folder.Path("day.csv") + "\n";
    const Outcome outcome = RunProgram("--simulated script " + folder.Make("script", script));
    EXPECT_EQ(outcome.exitCode, ExitCode::Success) << outcome.err;
    EXPECT_EQ(folder.Bytes("day-004.csv"), "");
    EXPECT_TRUE(Has(outcome.err, "0 missed conversions"));
    for (const char* name : {"day-001.csv", "day-002.csv", "day-003.csv"}) {
        EXPECT_TRUE(Has(folder.Bytes(name), ",main,105,")) << name;
        EXPECT_NEAR(static_cast<double>(Lines(folder.Bytes(name))), 36, 1) << name;
    }
}

TEST_F(RecordCommandTest, TimeOutsEndWithTheDuration) {
    EXPECT_EQ(Record("main --duration 5m", "no-data-ready").exitCode, ExitCode::NoAnswer);
    const Outcome gone = Record("main --duration 1h --force", "board-gone=100000");
    EXPECT_EQ(gone.exitCode, ExitCode::NoAnswer);
    EXPECT_TRUE(Has(gone.err, "time-outs, readings fail, to "));
    EXPECT_FALSE(Has(gone.err, ", 0 missed conversions, 5"));
    EXPECT_TRUE(Has(gone.err, "the board does not answer; the last code was discarded"));
    EXPECT_TRUE(Has(folder.Bytes("r.csv"), "Z time-out: no data-ready"));
}

TEST_F(RecordCommandTest, FaultsEndItInTimeWithCompleteLines) {
    const struct {
        const char* fault;
        ExitCode exitCode;
    } cases[] = {
        {"bit-flip=1", ExitCode::ReadBackMismatch}, {"bit-flip=200", ExitCode::Success},
        {"bit-flip=50001", ExitCode::Success},      {"board-gone=0", ExitCode::NoAnswer},
        {"board-gone=3000", ExitCode::NoAnswer},    {"rdy-stuck-low", ExitCode::NoAnswer},
    };
    for (const auto& [fault, exitCode] : cases) {
        for (const std::string more : {"", " --reset-on-timeout"}) {
            const Outcome outcome = Record("both --duration 5s --force" + more, fault);
            EXPECT_EQ(outcome.exitCode, exitCode) << fault << more << "\n" << outcome.err;
            std::istringstream lines(folder.Bytes("r.csv"));
            for (std::string line; std::getline(lines, line);) {
                EXPECT_TRUE(line.starts_with("#") || std::count(line.begin(), line.end(), ',') == 5)
                    << fault << more << ": " << line;
            }
        }
    }
}

}  // namespace
}  // namespace vx3260::test
