// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QProcess>
#include <algorithm>
#include <array>
#include <csignal>

#include "cli/ExitCodes.h"
#include "support/Folder.h"

/// What only a process of its own can show.
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
    void PressCtrlC() {
        ASSERT_GT(process.processId(), 0) << err;
        kill(static_cast<pid_t>(process.processId()), SIGINT);
    }

    bool Told(const std::string& text) const { return err.find(text) != std::string::npos; }

    Folder folder;
    QProcess process;
    std::string err;
};

TEST_F(Program, CtrlCKeepsWhatWasRead) {
    process.setReadChannel(QProcess::StandardError);
    Start({"--simulated", "read", "main", "--count", "32767", "--output",
           QString::fromStdString(folder.Path("x.dat"))});
    while (!Told("Reading 32767 codes") && process.waitForReadyRead(-1)) {
        err += process.readAllStandardError().toStdString();
    }
    PressCtrlC();
    EXPECT_EQ(End(), ExitCode::Interrupted) << err;
    const std::string saved = folder.Bytes("x.dat");
    const std::ptrdiff_t kept = std::count(saved.begin(), saved.end(), '\n');
    EXPECT_GT(kept, 0);
    EXPECT_TRUE(Told("Wrote " + std::to_string(kept) + " code")) << err;
}

TEST_F(Program, CtrlCDuringAReadingEndsTheScript) {
    process.setReadChannel(QProcess::StandardError);
    Start({"--simulated", "script", "-"});
    process.write("set mode chcon=set\nread main --count 32767 --output /dev/null\nregisters\n");
    process.closeWriteChannel();
    while (!Told("Reading 32767 codes") && process.waitForReadyRead(-1)) {
        err += process.readAllStandardError().toStdString();
    }
    PressCtrlC();
    EXPECT_EQ(End(), ExitCode::Interrupted);
    EXPECT_TRUE(Told("vx3260-cli: standard input:2: the script ends here\n")) << err;
    EXPECT_EQ(process.readAllStandardOutput(), "mode: 0x03 -> 0x13\n");
}

TEST_F(Program, AFullStandardOutputIsAnError) {
    const QStringList commands[] = {
        {"--simulated", "read", "main"}, {"--simulated", "noise", "main"}, {"--help"}};
    process.setStandardOutputFile("/dev/full");
    for (const QStringList& command : commands) {
        err.clear();
        Start(command);
        EXPECT_EQ(End(), ExitCode::FileNotAccessible);
        EXPECT_TRUE(Told("cannot write standard output: No space left on device")) << err;
    }
}

TEST_F(Program, AFullDiskLeavesTheOldFile) {
    const std::string path = folder.Make("x.dat", "old");
    process.setChildProcessModifier([] {
        const rlimit small{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &small);
    });
    Start({"--simulated", "read", "main", "--count", "1000", "--output",
           QString::fromStdString(path)});
    EXPECT_EQ(End(), ExitCode::FileNotAccessible);
    EXPECT_TRUE(Told("cannot write " + path + ": File too large")) << err;
    EXPECT_EQ(folder.Bytes("x.dat"), "old");
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
    std::array<char, 4096> part{};
    std::string lines;
    for (ssize_t got = 0; (got = read(shown, part.data(), part.size())) > 0;) {
        lines.append(part.data(), static_cast<std::size_t>(got));
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
