// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>
#include <cmath>
#include <sstream>

#include "cli/CliRun.h"
#include "link/BoardCheck.h"
#include "options/ExitCodes.h"
#include "ports/OpenPort.h"
#include "ports/SimulatedPort.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

TEST(CommandLine, WrongOnesAreRefused) {
    ExpectRefused(ExitCode::WrongCommandLine,
                  {
                      {"", "A command is required"},
                      {"--simulated read mian", "mian not in {main,aux}"},
                      {"--simulated read main --count 010", "is not a decimal integer"},
                      {"--fault no-data-ready read main", "--fault requires --simulated"},
                      {"--simulated --fault worn read main", "--fault list"},
                      {"noise main x.dat --polarity bipolar", "FILE requires --range"},
                      {"noise main x.dat --range 7", "FILE requires --polarity"},
                      {"noise aux x.dat --polarity bipolar", "FILE requires --full-scale"},
                      {"noise aux x.dat --range 7", "--range: the Aux ADC takes --full-scale"},
                      {"noise main x.dat --full-scale half", "the Main ADC takes --range in its"},
                      {"noise main x.dat --range 7 --polarity bipolar --count 20", "excludes"},
                      {"--simulated noise main --range 7", "--range requires FILE"},
                      {"--simulated noise main --reference 1e39", "not a positive number"},
                      {"read main --output ''", "--output: the name is empty"},
                      {"noise main ''", "FILE: the name is empty"},
                      {"histogram main ''", "FILE: the name is empty"},
                      {"script ''", "FILE: the name is empty"},
                      {"--simulated --trace '' registers", "--trace: the name is empty"},
                      {"read main --poll-time -1", "is not a number of microseconds"},
                  });
}

TEST(CommandLine, WhatCannotBeDoneHasItsExitCode) {
    ExpectRefused(
        ExitCode::CountRefused,
        {{"noise main --count 9", "between 9 and 5000 (9 given; accepted are 10 to 5000)"},
         {"noise main --count -99999999999999999999", "accepted are 10 to 5000"}});
    ExpectRefused(
        ExitCode::NoAnswer,
        {{"read main --simulated --fault board-gone=0",
          "the register mode reads 0xFF, and every other one alike. All bits read 1"},
         {"read main --simulated --fault=dout-stuck-low",
          "All bits read 0, as from a line that is stuck low. 0x3 was written. "},
         {"read main --simulated --fault no-data-ready", "Error Reading Data from VX3260\n"},
         {"read main --simulated --fault rdy-stuck-low", "data-ready line is stuck low: it"},
         {"noise main --simulated --fault no-data-ready", "Too few codes to analyse\n"}});
    ExpectRefused(
        ExitCode::FileNotAccessible,
        {{"read main --output /none/x.dat",
          "vx3260-cli: cannot write /none/x.dat: " + Folder::ReasonOfNoFile("/none/x.dat") + "\n"},
         {"registers --simulated --trace /none/x.vcd", "cannot write /none/x.vcd: No"},
         {"noise main /none/x.dat --range=7 --polarity=unipolar", "cannot read /none/"}});
}

TEST(CommandLine, RealPortsAreChosenWhereTheyAreDevices) {
    if (!RealPortsAreDevices) {
        GTEST_SKIP() << "a library has the ports of this system";
    }
    ExpectRefused(ExitCode::WrongCommandLine,
                  {
                      {"read main --simulated --port /dev/parport0", "excludes"},
                      {"read main --port-address 0x378", "needs --port-access=direct"},
                      {"read main --port-access direct --port-address 32766", "from 1 to 32765"},
                      {"read main --port-access direct --port-address 0", "from 1 to 32765"},
                      {"read main --port-access parallel", "--port-access"},
                  });
    ExpectRefused(
        ExitCode::NoAnswer,
        {{"read main --port /dev/none", "failed\n  There is no /dev/none."},
         {"read main --port /dev/none", "GetPortAddress Error: This PC does not appear to have a"},
         {"check --port /dev/null", "/dev/null is not a printer port."},
         {"reset hardware --port /dev/null", "the printer port could not be claimed; --simulated"},
         {"noise main --port /dev/none", "no printer port to reach a board through; --simulated"}});
}

TEST(CommandLine, HelpAndListsGoToStandardOutput) {
    const std::string help = RunProgram("--help").out;
    for (const ExitCodeText& line : ExitCodeTexts) {
        EXPECT_TRUE(Has(help, "\n  " + std::to_string(static_cast<int>(line.code)) + " "));
    }
    EXPECT_TRUE(Has(RunProgram("--fault list").out, "\nbit-flip=N        every Nth bit"));
    EXPECT_EQ(RunProgram("--version").out,
              "VX3260 Evaluation Software " + std::string(VersionText) + "\n");
}

TEST(CommandLine, StatusSwitchIsAWordInAnyCase) {
    const Outcome outcome = RunProgram("read main --simulated /ss");
    EXPECT_EQ(Lines(outcome.out), 200);
    EXPECT_TRUE(
        Has(outcome.err, "Show Status: Windows Version:Windows 2000\n  Port Address:0x378\n"));
    EXPECT_EQ(RunProgram("histogram main /none/ss/x.dat").err.find("Port"), std::string::npos);
}

TEST(CommandLine, ATraceReplacesNothingButATrace) {
    const Folder folder;
    const std::string data = folder.Make("x.dat", "1\n");
    const std::string trace = folder.Path("x.vcd");
    ExpectRefused(ExitCode::FileNotAccessible, {{"registers --simulated --trace " + data,
                                                 "that is not a trace; choose another"}});
    ExpectRefused(ExitCode::WrongCommandLine,
                  {{"read main --simulated --trace " + trace + " -o " + trace, "the same file"}});
    EXPECT_EQ(folder.Bytes("x.dat"), "1\n");
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(RunProgram("registers --simulated --trace " + trace).exitCode, ExitCode::Success);
    }
}

TEST(ReadCommand, WritesTheSameCodesToEitherPlaceInEitherNotation) {
    const Folder folder;
    const std::string read = "--simulated read main --count 3";
    const Outcome decimal = RunProgram(read);
    EXPECT_EQ(decimal.exitCode, ExitCode::Success);
    EXPECT_EQ(decimal.err,
              "Simulated board\nReading 3 codes from the Main ADC, Ctrl+C stops\n"
              "Wrote 3 codes to standard output\n");
    EXPECT_EQ(Lines(decimal.out), 3);
    EXPECT_EQ(RunProgram(read + " --output " + folder.Path("ä.dat")).out, "");
    EXPECT_EQ(folder.Bytes("ä.dat"), decimal.out);
    std::istringstream codes(decimal.out);
    std::ostringstream hex;
    for (int code = 0; codes >> code;) {
        hex << std::hex << std::uppercase << code << '\n';
    }
    EXPECT_EQ(RunProgram(read + " --hex").out, hex.str());
}

TEST(ReadCommand, KeepsWhatWasReadBeforeATimeout) {
    const Outcome outcome =
        RunProgram("--simulated --fault board-gone=60000 read main --count 5000");
    EXPECT_EQ(outcome.exitCode, ExitCode::NoAnswer);
    const std::ptrdiff_t kept = Lines(outcome.out);
    ASSERT_GT(kept, 1);
    EXPECT_FALSE(Has(outcome.out, "-2147483648"));
    EXPECT_TRUE(Has(outcome.err, "Read so far: " + std::to_string(kept) + " codes\n"));
}

TEST(ReadCommand, ReplacesNoFileByAnIncompleteReading) {
    const Folder folder;
    const std::string path = folder.Path("x.dat");
    const std::string read = "--simulated --fault board-gone=60000 read main --output " + path;
    EXPECT_TRUE(Has(RunProgram(read).err, " to " + path + "\n")) << "there is no such file yet";
    const std::string first = folder.Bytes("x.dat");
    const Outcome outcome = RunProgram(read + " --hex");
    EXPECT_EQ(outcome.exitCode, ExitCode::NoAnswer);
    EXPECT_TRUE(Has(outcome.err, "did not complete: " + path + " stays as it was\nWrote "));
    EXPECT_EQ(folder.Bytes("x.dat"), first);
    const std::string beside = outcome.err.substr(outcome.err.rfind("x.dat."), 12);
    EXPECT_EQ(Lines(folder.Bytes(beside)), Lines(first)) << beside;
    EXPECT_EQ(QFile::permissions(QString::fromStdString(folder.Path(beside))),
              QFile::permissions(QString::fromStdString(path)));
}

class NoiseOfFile : public testing::Test {
  protected:
    std::string LineFor(const std::string& bytes, const std::string& more = "",
                        const std::string& of = "main --range 7 --polarity bipolar ") {
        return "noise " + of + more + " " + folder_.Make("f.dat", bytes);
    }
    template <typename... Words>
    Outcome Analyse(const Words&... words) {
        return RunProgram(LineFor(words...));
    }

    /// Ten codes; their mean is mid-scale.
    const std::string block =
        " 8388608\n 8388607\n 8388609\n 8388608\n 8388608\n"
        " 8388608\n 8388608\n 8388608\n 8388608\n 8388608\n";
    const std::string equal = "11\n11\n11\n11\n11\n11\n11\n11\n11\n11\n";

  private:
    Folder folder_;
};

TEST_F(NoiseOfFile, TextIsThatOfTheForm) {
    const Outcome outcome = Analyse(block);
    EXPECT_EQ(outcome.exitCode, ExitCode::Success);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(
        outcome.out.starts_with("Conditions\n"
                                "  Codes Read      10\n"
                                "  Input Range     ± 2.56V\n"));
    EXPECT_TRUE(
        outcome.out.ends_with("  Max Code        800001\n"
                              "  Min Code        7FFFFF\n"
                              "Resolution\n"
                              "  Readings N                 10\n"
                              "  RMS Noise (divisor N - 1)  0.471405 LSB  143.861 nV\n"
                              "  Std. Error of the Mean     0.149071 LSB  45.4929 nV\n"
                              "  Est. Pk to Pk (6.6 sigma)  3.11127 LSB   949.484 nV\n"
                              "  Effective Resolution       25.08 bits\n"
                              "  Noise-Free Resolution      23.00 bits\n"))
        << outcome.out;
}

TEST_F(NoiseOfFile, JsonHasFullPrecision) {
    const QJsonObject report =
        Parsed(Analyse(block + " 8388597\n", "--format json --reference 3.3"));
    const QJsonObject values = report["values"].toObject();
    const QJsonObject expected = QJsonDocument::fromJson(R"({
        "count": 11, "referenceVoltage": 3.3, "inputRange": 2.56, "lsbVolts": 4.0283203125e-07,
        "maxCode": 8388609, "minCode": 8388597, "spanCodes": 12, "peakToPeakVolts": 4.833984375e-06,
        "meanCodes": 8388607, "averageVolts": -4.0283203125e-07,
        "sigmaCodes": 3.346640106136, "sigmaVolts": 1.348133831818e-06,
        "standardErrorCodes": 1.009049958219, "standardErrorVolts": 4.064776443021e-07,
        "estimatedPeakToPeakCodes": 22.0878247005, "estimatedPeakToPeakVolts": 8.897683289996e-06,
        "effectiveResolutionBits": 22.25728658641, "noiseFreeResolutionBits": 20.41503749928})")
                                     .object();
    EXPECT_EQ(expected.size(), 18);
    for (const QString& name : expected.keys()) {
        const double value = expected[name].toDouble();
        EXPECT_NEAR(values[name].toDouble(), value, std::abs(value) * 1e-12) << name.toStdString();
    }
    EXPECT_FALSE(values["effectiveResolutionIsLowerBound"].toBool(true));
    EXPECT_EQ(values["polarity"].toString(), "bipolar");
    EXPECT_EQ(report["texts"]["RangeLabel"].toString(), QString::fromUtf8("± 2.56V"));
    EXPECT_EQ(report["texts"]["NoiseFreeLabel"].toString(), "20.42 bits");
    EXPECT_EQ(report["converter"].toString(), "main");
    EXPECT_TRUE(report["board"].isNull());
}

TEST_F(NoiseOfFile, BlocksWithoutNoiseGiveLowerBounds) {
    const QJsonValue values = Parsed(Analyse(equal, "--format json"))["values"];
    EXPECT_EQ(values["effectiveResolutionBits"].toDouble(), 24);
    EXPECT_EQ(values["noiseFreeResolutionBits"].toDouble(), 24);
    EXPECT_TRUE(values["effectiveResolutionIsLowerBound"].toBool());
    EXPECT_TRUE(values["noiseFreeResolutionIsLowerBound"].toBool());
}

TEST_F(NoiseOfFile, OfTheAuxConverterIsScaledByItsReference) {
    const std::pair<std::string, const char*> cases[] = {
        {"full --polarity unipolar ", "REFIN2"},
        {"half --polarity unipolar ", "REFIN2 / 2"},
        {"half --polarity bipolar ", "± REFIN2 / 2"},
    };
    for (const auto& [scale, range] : cases) {
        const QJsonObject report =
            Parsed(Analyse(equal, "--hex --format json", "aux --full-scale " + scale));
        EXPECT_EQ(report["converter"].toString(), "aux");
        EXPECT_EQ(report["texts"]["RangeLabel"].toString(), QString::fromUtf8(range));
        EXPECT_EQ(report["values"]["maxCode"].toInt(), 0x11);
    }
}

TEST_F(NoiseOfFile, EachKindOfBadFileHasItsExitCode) {
    ExpectRefused(ExitCode::CountRefused,
                  {{LineFor(" 1\n"), "(1 given; accepted are 10 to 5000)"}});
    ExpectRefused(ExitCode::BadDataFile,
                  {{LineFor(" 1\nFF\n"), "line 2: \"FF\" is not a decimal code"}});
    ExpectRefused(ExitCode::BadDataFile,
                  {{LineFor(block + "-2147483648\n"), "line 11: the time-out value"}});
    ExpectRefused(ExitCode::BadDataFile,
                  {{LineFor(block + "-2000000000\n 2000000000"), "be analysed: Overflow"}});
    EXPECT_TRUE(Has(Analyse(block, "--hex").err, "there are codes outside 0 to 0xFFFFFF"));
    EXPECT_TRUE(Has(Analyse(equal).err, "all codes are 0xB;"));
    EXPECT_EQ(Analyse(block + "8388").err,
              "Warning: the last line has no line end; was the file "
              "cut off?\n");
}

TEST(NoiseOfBoard, TakesItsConditionsFromTheChip) {
    for (const std::string converter : {"main", "aux"}) {
        const QJsonObject report =
            Parsed(RunProgram("--simulated noise --count 50 --format json " + converter));
        const bool main = converter == "main";
        EXPECT_EQ(report["board"].toString(), "Simulated board");
        EXPECT_EQ(report["converter"].toString().toStdString(), converter);
        EXPECT_EQ(report["values"]["count"].toInt(), 50);
        EXPECT_EQ(report["values"]["inputRange"].toDouble(), main ? 2.56 : 2.5);
        EXPECT_EQ(report["values"]["polarity"].toString(), main ? "bipolar" : "unipolar");
        EXPECT_GT(report["values"]["sigmaCodes"].toDouble(), main ? 1 : 0.1);
    }
}

TEST(Check, TellsWhatStandsBehindThePort) {
    EXPECT_EQ(RunProgram("--simulated check").out,
              "the board answers: what was written to a register reads back (data-ready was not "
              "looked at)\n");
    const std::string check = "--simulated check --fault ";
    ExpectRefused(ExitCode::NoAnswer,
                  {{check + "board-gone=0", "no answer: all bits read 1"},
                   {check + "dout-stuck-high", "stuck high: all bits read 1, though data-ready"},
                   {check + "dout-stuck-low", "stuck low: all bits read 0"},
                   {check + "dout-stuck-low", ". Look "}});
    ExpectRefused(
        ExitCode::ReadBackMismatch,
        {{check + "bit-flip=50",
          "answers wrongly: the aux ADC control register was written with 0x28 and reads 0x"}});
}

TEST(Check, PutsTheRegisterBack) {
    SimulatedPort board;
    EXPECT_EQ(CheckBoard(board, 888).verdict, BoardVerdict::Answers);
    EXPECT_EQ(board.Board().Chip().Contents(3), 0xB9U);
}

TEST(Ports, ListsTheSimulatedOneAlone) {
    const Outcome outcome = RunProgram("--simulated ports");
    EXPECT_EQ(outcome.exitCode, ExitCode::Success);
    EXPECT_EQ(outcome.out,
              "port       address  permissions  claim\nsimulated  0x378                 yes\n");
    const QJsonArray list =
        Parsed(RunProgram("--simulated ports --format json"))["ports"].toArray();
    EXPECT_EQ(list.at(0)["address"].toInt(), 888);
    EXPECT_TRUE(list.at(0)["canBeClaimed"].toBool());
}

}  // namespace
}  // namespace vx3260::test
