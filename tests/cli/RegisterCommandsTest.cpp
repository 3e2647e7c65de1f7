// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "cli/CliRun.h"

namespace vx3260::test {
namespace {

TEST(RegistersCommand, TextHasALineForEachRegisterAndField) {
    const Outcome outcome = RunProgram("--simulated registers");
    EXPECT_EQ(outcome.exitCode, ExitCode::Success);
    EXPECT_EQ(outcome.err, "Simulated board\n");
    for (const char* const line : {
             "status             0x01      Status Register\n  rdy0             no\n",
             "\nmode               0x03      Mode Register\n",
             "\n  range            2.56V\n",
             "\n  word             69 (19.7874 Hz)\n",
             "\nio-control         0x0004    I/O Control Register\n",
             "\nmain-zero          0x800000  Main Zero",
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
        EXPECT_EQ(outcome.exitCode, ExitCode::NoAnswer);
        EXPECT_TRUE(Has(outcome.err, ", and every other one alike. All bits read "));
        EXPECT_TRUE(Has(outcome.out, "filter "));
    }
    ExpectRefused(ExitCode::NoAnswer, {{"registers", "no printer port"}});
}

TEST(SetCommand, RefusesWhatMustNotBeWritten) {
    const std::string s = "--simulated set ";
    ExpectRefused(
        ExitCode::WrongCommandLine,
        {
            {s + "status lock=yes", "status not in {mode,main-control,"},
            {s + "mode", "assignments is required"},
            {s + "mode mode", "it has the fields: buffering, chcon, oscillator, mode\n"},
            {s + "mode range=0", "'range=0' is not a FIELD=VALUE of the register mode; it has"},
            {s + "mode chcon=yes", "it takes: cleared, set, a number from 0 to 1\n"},
            {s + "mode mode=power-down chcon=2", "'2' is not a valid value for chcon"},
            {s + "mode mode=idle mode=internal-zero", "calibrate internal-zero\n"},
            {s + "mode mode=0x7", "calibrate system-full\n"},
            {s + "main-control channel=010", "'010' is not a valid value"},
            {s + "filter word=12", "it takes: a number from 13 to 255\n"},
            {s + "aux-zero value=0x10000", "a number from 0 to 65535\n"},
            {s + "main-full value=99999999999", "a number from 0 to 16777215\n"},
        });
    ExpectRefused(ExitCode::NotInPowerDown,
                  {{s + "filter word=13", "The remedy: set mode mode=power-down\n"},
                   {s + "main-zero value=0", "(mode register: 0x03). Nothing was written"}});
    ExpectRefused(ExitCode::ReadBackMismatch,
                  {{s + "io-control p3=low",
                    "wrote 0x0000 to the register io-control (it was 0x0004) and read back"}});
    ExpectRefused(
        ExitCode::NoAnswer,
        {{s + "filter word=69 --fault board-gone=0",
          "the register mode reads 0xFF, and every other one alike. All bits read 1"},
         {s + "io-control p1-status=driven --fault board-gone=0", "Nothing was written"}});
}

TEST(CalibrateCommand, TellsWhyItDidNotCalibrate) {
    ExpectRefused(ExitCode::NoAnswer,
                  {{"--simulated --fault no-data-ready calibrate internal-full",
                    "Error Calibrating VX3260\n  The data-ready line"},
                   {"--simulated --fault rdy-stuck-low calibrate internal-full",
                    "stuck low: it announces the end of a calibration that goes on"},
                   {"--simulated --fault dout-stuck-low calibrate internal-zero",
                    "the register main-control reads 0x00"},
                   {"calibrate internal-zero", "no printer port"}});
}

}  // namespace
}  // namespace vx3260::test
