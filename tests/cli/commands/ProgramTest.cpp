// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <algorithm>
#include <csignal>

#include "options/ExitCodes.h"
#include "support/Folder.h"

/// What can only be tested in a separate process.
namespace vx3260::test {
namespace {

class Program : public testing::Test {
  protected:
    void Start(const QStringList& arguments) {
        process.start(QStringLiteral(VX3260_CLI), arguments);
        ASSERT_TRUE(process.waitForStarted(-1)) << process.errorString().toStdString();
    }

    ExitCode End() {
        process.waitForFinished(-1);
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        err += process.readAllStandardError().toStdString();
        return static_cast<ExitCode>(process.exitCode());
    }

    /// While it runs: 0 would stand for this process and all its relations.
    void Send(int signal) {
        ASSERT_GT(process.processId(), 0) << err;
        kill(static_cast<pid_t>(process.processId()), signal);
    }

    /// Returns when the program has begun to read a block.
    void WaitForReading() {
        process.setReadChannel(QProcess::StandardError);
        while (!Printed("Reading ") && process.waitForReadyRead(-1)) {
            err += process.readAllStandardError().toStdString();
        }
    }

    /// Returns when the program catches SIGINT.
    void WaitForHandler() const {
        const QRegularExpression caught(QStringLiteral("SigCgt:.*[2367abef]\n"));
        QFile status(QStringLiteral("/proc/%1/status").arg(process.processId()));
        do {
            ASSERT_TRUE(status.open(QIODevice::ReadOnly)) << "the program has ended";
        } while (!caught.match(QString::fromUtf8(ReadAndClose(status))).hasMatch());
    }

    static QByteArray ReadAndClose(QFile& file) {
        const QByteArray bytes = file.readAll();
        file.close();
        return bytes;
    }

    bool Printed(const std::string& text) const { return err.find(text) != std::string::npos; }

    Folder folder;
    QProcess process;
    std::string err;
};

TEST_F(Program, SignalsEndARecordingAndBeginNewFiles) {
    const auto waitFor = [this](const std::string& text) {
        process.setReadChannel(QProcess::StandardError);
        while (!Printed(text) && process.waitForReadyRead(-1)) {
            err += process.readAllStandardError().toStdString();
        }
    };
    for (const bool endless : {true, false}) {
        err.clear();
        const std::string path = folder.Path(endless ? "a.csv" : "b.csv");
        QStringList words{"--simulated", "record", "main", "--output",
                          QString::fromStdString(path)};
        Start(endless ? words
                      : words << "--duration"
                              << "365d");
        waitFor("Recording into " + path);
        Send(SIGHUP);
        waitFor("Recording into " + folder.Path(endless ? "a-002.csv" : "b-002.csv"));
        Send(endless ? SIGINT : SIGTERM);
        EXPECT_EQ(End(), endless ? ExitCode::Success : ExitCode::Interrupted) << err;
        EXPECT_TRUE(Printed("Wrote ")) << err;
        EXPECT_TRUE(folder.Bytes("a-002.csv").ends_with("\n"));
    }
}

TEST_F(Program, SignalKeepsWhatWasRead) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        err.clear();
        const std::string file = std::to_string(signal) + ".dat";
        Start({"--simulated", "read", "main", "--count", "32767", "--output",
               QString::fromStdString(folder.Path(file))});
        WaitForReading();
        Send(signal);
        EXPECT_EQ(End(), ExitCode::Interrupted) << err;
        const std::string saved = folder.Bytes(file);
        const std::ptrdiff_t kept = std::count(saved.begin(), saved.end(), '\n');
        EXPECT_GT(kept, 0);
        EXPECT_TRUE(Printed("Wrote " + std::to_string(kept) + " code")) << err;
    }
}

/// Replaces a standard stream by a pipe without a reader.
void CloseReaderOf(int stream) {
    int ends[2];
    if (pipe(ends) == 0) {
        close(ends[0]);
        dup2(ends[1], stream);
    }
}

TEST_F(Program, ClosedOutputEndsItQuietlyButAClosedErrorStreamDoesNot) {
    process.setChildProcessModifier([] { CloseReaderOf(STDOUT_FILENO); });
    Start({"--simulated", "read", "main"});
    EXPECT_EQ(End(), ExitCode::OutputClosed);
    EXPECT_FALSE(Printed("cannot write")) << err;
    process.setChildProcessModifier([] { CloseReaderOf(STDERR_FILENO); });
    Start({"--simulated", "read", "main"});
    EXPECT_EQ(End(), ExitCode::Success);
    EXPECT_EQ(process.readAllStandardOutput().count('\n'), 200);
}

TEST_F(Program, ReadingGoesOnWithoutAReaderOfTheTrace) {
    const std::string trace = folder.Path("trace");
    ASSERT_EQ(mkfifo(trace.c_str(), 0600), 0);
    const int reader = open(trace.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    Start({"--simulated", "--trace", QString::fromStdString(trace), "read", "main"});
    WaitForReading();
    close(reader);
    EXPECT_EQ(End(), ExitCode::Success);
    EXPECT_TRUE(Printed("The trace ends here: cannot write " + trace + ": Broken pipe")) << err;
    EXPECT_EQ(process.readAllStandardOutput().count('\n'), 200);
}

TEST_F(Program, CtrlCDuringAReadingEndsTheScript) {
    Start({"--simulated", "script", "-"});
    process.write("set mode chcon=set\nread main --count 32767 --output /dev/null\nregisters\n");
    process.closeWriteChannel();
    WaitForReading();
    Send(SIGINT);
    EXPECT_EQ(End(), ExitCode::Interrupted);
    EXPECT_TRUE(Printed("vx3260-cli: standard input:2: the script ends here\n")) << err;
    EXPECT_EQ(process.readAllStandardOutput(), "mode: 0x03 -> 0x13\n");
}

TEST_F(Program, CtrlCDoesNotLoseTheCodesInAPipe) {
    Start({"histogram", "main", "-", "--format", "csv"});
    WaitForHandler();
    Send(SIGINT);
    process.write(" 7\n 7\n 8\n");
    process.closeWriteChannel();
    EXPECT_EQ(End(), ExitCode::Interrupted) << err;
    EXPECT_TRUE(process.readAllStandardOutput().contains("\n7,7,2,"));
}

TEST_F(Program, FullStandardOutputIsAnError) {
    process.setStandardOutputFile("/dev/full");
    for (const char* command : {"read", "noise"}) {
        err.clear();
        Start({"--simulated", command, "main"});
        EXPECT_EQ(End(), ExitCode::FileNotAccessible);
        EXPECT_TRUE(Printed("cannot write standard output: No space left on device")) << err;
    }
}

TEST_F(Program, BarsFillTheTerminal) {
    int shown = 0;
    int terminal = 0;
    const winsize size{24, 50, 0, 0};
    if (openpty(&shown, &terminal, nullptr, nullptr, &size) != 0) {
        GTEST_SKIP() << "no pseudo-terminals here: is /dev/pts mounted?";
    }
    process.setChildProcessModifier([terminal] { dup2(terminal, STDOUT_FILENO); });
    Start({"histogram", "main", QString::fromStdString(folder.Make("x.dat", "1\n"))});
    EXPECT_EQ(End(), ExitCode::Success) << err;
    close(terminal);
    std::string lines;
    for (char c = 0; read(shown, &c, 1) > 0;) {
        lines += c;
    }
    const std::string beforeBar = "\n>          1  0x000001      1  ";
    std::string bar;
    for (std::size_t i = beforeBar.size(); i <= size.ws_col; ++i) {
        bar += "█";
    }
    EXPECT_TRUE(lines.ends_with(beforeBar + bar + "\r\n")) << lines;
    close(shown);
}

}  // namespace
}  // namespace vx3260::test
