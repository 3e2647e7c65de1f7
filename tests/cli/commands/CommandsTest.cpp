// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <sstream>

#include "cli/commands/CliRun.h"
#include "options/ExitCodes.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

QJsonObject Parsed(const Outcome& outcome) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(outcome.out)).object();
}

TEST(CommandLine, HelpAndVersionGoToStandardOutput) {
    const std::string help = RunProgram("--help").out;
    for (const ExitCodeText& line : ExitCodeTexts) {
        EXPECT_TRUE(Has(help, "\n  " + std::to_string(static_cast<int>(line.code)) + " "));
    }
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

TEST(ReadCommand, IncompleteReadingDoesNotReplaceAFile) {
    const Folder folder;
    const std::string path = folder.Path("x.dat");
    const std::string read = "--simulated --fault board-gone=60000 read main --output " + path;
    const Outcome first = RunProgram(read);
    const std::string kept = folder.Bytes("x.dat");
    EXPECT_EQ(first.exitCode, ExitCode::NoAnswer);
    EXPECT_TRUE(Has(first.err, "Read so far: " + std::to_string(Lines(kept)) + " codes\n"));
    EXPECT_TRUE(Has(first.err, " to " + path + "\n")) << "there is no such file yet";
    EXPECT_FALSE(Has(kept, "-2147483648"));
    ASSERT_GT(Lines(kept), 1);

    const Outcome second = RunProgram(read + " --hex --force");
    EXPECT_EQ(second.exitCode, ExitCode::NoAnswer);
    EXPECT_TRUE(Has(second.err, "did not complete: " + path + " stays as it was\nWrote "));
    EXPECT_EQ(folder.Bytes("x.dat"), kept);
    const std::string beside = second.err.substr(second.err.rfind("x.dat."), 12);
    EXPECT_EQ(Lines(folder.Bytes(beside)), Lines(kept)) << beside;
    EXPECT_EQ(QFile::permissions(QString::fromStdString(folder.Path(beside))),
              QFile::permissions(QString::fromStdString(path)));
}

TEST(ReadCommand, ReplacesAFileOnlyByForce) {
    const Folder folder;
    const std::string path = folder.Make("x.dat", "old");
    const std::string read = "--simulated read main --count 2 -o " + path;
    const Outcome refused = RunProgram(read);
    EXPECT_EQ(refused.exitCode, ExitCode::FileNotAccessible);
    EXPECT_EQ(refused.err,
              "vx3260-cli: cannot write " + path + ": the file exists; --force replaces it\n");
    EXPECT_EQ(folder.Bytes("x.dat"), "old");
    EXPECT_EQ(RunProgram(read + " --force").exitCode, ExitCode::Success);
    EXPECT_EQ(Lines(folder.Bytes("x.dat")), 2);
}

/// The reading takes the same simulated time in either format, so it has the same codes.
TEST(ReadCommand, WritesTimesAndVolts) {
    const std::string read = "--simulated read main --count 3 --reference 3.3 --format ";
    const QJsonObject report = Parsed(RunProgram(read + "json"));
    EXPECT_EQ(report["board"].toString(), "Simulated board");
    EXPECT_EQ(report["converter"].toString(), "main");
    EXPECT_EQ(report["referenceVoltage"].toDouble(), 3.3);
    EXPECT_EQ(report["range"].toDouble(), 2.56);
    EXPECT_EQ(report["polarity"].toString(), "bipolar");
    EXPECT_EQ(report["count"].toInt(), 3);
    EXPECT_EQ(report["end"].toString(), "complete");
    std::istringstream csv(RunProgram(read + "csv").out);
    std::string line;
    std::getline(csv, line);
    EXPECT_EQ(line, "index,time_s,code,volts");
    double before = 0;
    for (int index = 1; index <= 3; ++index) {
        const QJsonValue value = report["values"].toArray().at(index - 1);
        std::getline(csv, line);
        const QStringList cells = QString::fromStdString(line).split(',');
        ASSERT_EQ(cells.size(), 4) << line;
        EXPECT_EQ(cells[0].toInt(), index);
        EXPECT_EQ(cells[2].toInt(), value["code"].toInt());
        EXPECT_EQ(cells[3].toDouble(), value["volts"].toDouble());
        EXPECT_NEAR(value["volts"].toDouble(),
                    (value["code"].toInt() - 8388608) * 3.3 * 1.024 / 8388608, 1e-15);
        EXPECT_GT(value["timeSeconds"].toDouble(), before);
        before = value["timeSeconds"].toDouble();
    }
    EXPECT_FALSE(std::getline(csv, line)) << line;
}

TEST(ReadCommand, IncompleteReadingSaysHowItEnded) {
    const Outcome outcome =
        RunProgram("--simulated --fault board-gone=60000 read aux --format json");
    EXPECT_EQ(outcome.exitCode, ExitCode::NoAnswer);
    const QJsonObject report = Parsed(outcome);
    EXPECT_EQ(report["end"].toString(), "timed-out");
    EXPECT_EQ(report["values"].toArray().size(), report["count"].toInt());
    EXPECT_GT(report["count"].toInt(), 1);
}

}  // namespace
}  // namespace vx3260::test
