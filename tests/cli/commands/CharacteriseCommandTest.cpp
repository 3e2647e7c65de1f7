// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/commands/CliRun.h"
#include "numbers/FilePath.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

struct CharacteriseCommandTest : testing::Test {
    Outcome Run(const std::string& further, const std::string& board = "--simulated") const {
        return RunProgram(board +
                          " characterise main --ranges 2.56V,20mV --words 13,20 --count 50 "
                          "--output " +
                          results + " " + further);
    }
    bool Exists(const std::string& name) const {
        return std::filesystem::exists(FilePath(results + "/" + name));
    }

    Folder folder;
    std::string results = folder.Path("results");
};

TEST_F(CharacteriseCommandTest, WritesTablesBlocksAndReport) {
    const Outcome outcome = Run("--polarity both --calibrate internal");
    EXPECT_EQ(outcome.exitCode, ExitCode::Success);
    EXPECT_TRUE(
        Has(outcome.err, "Measuring 8 settings with 50 codes each, after 4 to settle; 0:06 at"));
    EXPECT_TRUE(Has(outcome.err, "\nAll registers are as they were before, verified\n"));
    EXPECT_TRUE(Has(outcome.out, "RMS noise (peak-to-peak) in uV, bipolar\n"));
    EXPECT_TRUE(Has(outcome.out, "Effective resolution (noise-free) in bits, unipolar\n"));
    const std::string table = folder.Bytes("results/table.csv");
    EXPECT_TRUE(table.starts_with(
        "range,word,rate_hz,polarity,count,rms_v,rms_low_v,rms_high_v,pkpk_v,effective_bits,"
        "noise_free_bits,warnings\n20mV,13,105.02564102564102,bipolar,50,"));
    EXPECT_EQ(Lines(table), 9);
    EXPECT_EQ(RunProgram("noise main " + results + "/unipolar-20mV-13.dat").exitCode,
              ExitCode::Success);
    const std::string report = folder.Bytes("results/report.html");
    for (const char* part : {"<h1>VX3260 Main ADC Noise</h1>", "Simulated board", "<svg",
                             "internal, at each setting", "Main ADC Control Register"}) {
        EXPECT_TRUE(Has(report, part));
    }
    EXPECT_EQ(report.find("{{"), std::string::npos);
    std::filesystem::remove(FilePath(results + "/report.html"));
    EXPECT_EQ(RunProgram("report " + results).exitCode, ExitCode::Success);
    EXPECT_EQ(folder.Bytes("results/report.html"), report);
}

TEST_F(CharacteriseCommandTest, ReportsAChannelWithoutAName) {
    const std::string script = folder.Make(
        "script",
        "set aux-control channel=7\ncharacterise aux --words 13 --count 10 -o '" + results + "'\n");
    EXPECT_EQ(RunProgram("--simulated script " + script).exitCode, ExitCode::Success);
    EXPECT_EQ(RunProgram("report " + results).exitCode, ExitCode::Success);
}

TEST_F(CharacteriseCommandTest, ResumesTheSameAndReplacesByForceOnly) {
    EXPECT_EQ(Run("", "--simulated --fault board-gone=400000").exitCode, ExitCode::NoAnswer);
    EXPECT_TRUE(Exists("bipolar-20mV-13.dat.json"));
    EXPECT_FALSE(Exists("bipolar-2.56V-20.dat"));
    EXPECT_EQ(Run("").exitCode, ExitCode::FileNotAccessible);
    EXPECT_TRUE(Has(Run("--resume --settle 5").err, "with other arguments"));
    const std::string first = folder.Bytes("results/bipolar-20mV-13.dat");
    const Outcome resumed = Run("--resume");
    EXPECT_EQ(resumed.exitCode, ExitCode::Success);
    EXPECT_EQ(resumed.err.find("Measuring 4 "), std::string::npos);
    EXPECT_EQ(folder.Bytes("results/bipolar-20mV-13.dat"), first);
    EXPECT_TRUE(Exists("bipolar-2.56V-20.dat"));
    EXPECT_TRUE(Has(Run("--resume").err, "All settings have been measured"));

    EXPECT_EQ(RunProgram("--simulated characterise aux --ranges half --words 13 --count 10 "
                         "--force --output " +
                         results)
                  .exitCode,
              ExitCode::Success);
    EXPECT_FALSE(Exists("bipolar-2.56V-20.dat"));
    folder.Make("results/characterisation.json", "{}");
    EXPECT_EQ(Run("--resume").exitCode, ExitCode::BadDataFile);
    EXPECT_EQ(RunProgram("report " + results).exitCode, ExitCode::BadDataFile);
    EXPECT_TRUE(Has(RunProgram("--simulated characterise main --output " + folder.Path("")).err,
                    "is not empty"));
    EXPECT_EQ(Run("--force").exitCode, ExitCode::Success) << "what cannot be read is replaced";
}

TEST_F(CharacteriseCommandTest, KeepsTheResultsWhereTheBoardIsNotFit) {
    EXPECT_EQ(Run("").exitCode, ExitCode::Success);
    for (const char* fault : {"rdy-stuck-low", "bit-flip=50"}) {
        const Outcome outcome = Run("--force", std::string("--simulated --fault ") + fault);
        EXPECT_NE(outcome.exitCode, ExitCode::Success) << fault;
        EXPECT_TRUE(Exists("bipolar-20mV-13.dat")) << fault;
    }
    const std::string other = folder.Make(
        "other",
        "set main-control word-length=16\ncharacterise main --ranges 20mV,2.56V --words "
        "13,20 --count 50 --resume --output " +
            results + "\n");
    const Outcome resumed = RunProgram("--simulated script " + other);
    EXPECT_EQ(resumed.exitCode, ExitCode::FileNotAccessible);
    EXPECT_TRUE(Has(resumed.err, "main-control word-length was 24 and is 16"));
}

TEST_F(CharacteriseCommandTest, ReportsSettingsThatFail) {
    const Outcome outcome = Run("", "--simulated --fault no-data-ready");
    EXPECT_EQ(outcome.exitCode, ExitCode::NoAnswer);
    EXPECT_TRUE(
        Has(outcome.out, "* 20mV, bipolar, word 20: time-out: no data-ready for result 1 of 4\n"));
    EXPECT_TRUE(Has(outcome.err, "verified"));
    EXPECT_TRUE(Has(folder.Bytes("results/table.csv"), "20mV,20,68.2"));
    EXPECT_TRUE(Has(folder.Bytes("results/report.html"), "No setting was measured."));
}

}  // namespace
}  // namespace vx3260::test
