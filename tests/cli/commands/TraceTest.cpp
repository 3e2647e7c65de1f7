// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>

#include "support/Folder.h"

/// A trace, read by another program.
namespace vx3260::test {
namespace {

QString OutputOf(const QString& program, const QStringList& arguments, const char* input = "") {
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(-1)) << process.errorString().toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The bytes of one data line, "mosi" or "miso", separated by spaces.
QString DecodedBytes(const QString& file, const QString& line) {
    const QString decoder = QStringLiteral(
        "spi:clk=SCLK:mosi=DIN:miso=DOUT:cpol=1:cpha=1:bitorder=msb-first:wordsize=8");
    QString text = OutputOf(QStringLiteral(SIGROK_CLI), {"-i", file, "-I", "vcd", "-P", decoder,
                                                         "-A", "spi=" + line + "-data"});
    return text.remove("spi-1: ").replace('\n', ' ').trimmed();
}

TEST(TraceFile, HoldsTheBytesThatWereSentAndRead) {
    const Folder folder;
    const QString file = QString::fromStdString(folder.Path("t.vcd"));
    const QString output =
        OutputOf(QStringLiteral(VX3260_CLI), {"--simulated", "--trace", file, "script", "-"},
                 "set aux-control enable=off\nread main --count 1 --hex\n");
    const QRegularExpressionMatch code = QRegularExpression("\n(..)(..)(..)\n$").match(output);
    ASSERT_TRUE(code.hasMatch()) << output.toStdString();
    EXPECT_EQ(DecodedBytes(file, "mosi"),
              "43 00 03 39 43 00 41 00 "
              "40 00 41 00 42 00 43 00 44 00 47 00 00 48 00 00 00 49 00 00 4A 00 00 00 4B 00 00 "
              "42 00 43 00 45 00 00 00 40 00 42 00");
    const QString read = DecodedBytes(file, "miso");
    const QString expected = "^.. B9 .. .. .. 39 .. 03( ..){28} 87 .. 39 .. " + code.captured(1) +
                             " " + code.captured(2) + " " + code.captured(3) + " .. .. .. 87$";
    EXPECT_TRUE(QRegularExpression(expected).match(read).hasMatch()) << read.toStdString();
}

}  // namespace
}  // namespace vx3260::test
