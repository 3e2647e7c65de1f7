// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/CloseOnSignal.h"

#include <unistd.h>

#include <QProcess>
#include <csignal>

#include "forms/shell/MainMenuForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

TEST_F(FormTest, SignalClosesAllWindowsDuringAReading) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    int accepted = 0;
    const CloseOnSignal closing(ends[0], [&accepted] { ++accepted; });
    MainMenuForm menu(*bench->services);
    const auto startReading = [&ends] {
        const QWidget& reading = *QApplication::activeModalWidget();
        Find<QLineEdit>(reading, "NumCodesText").setText("32767");
        QTimer::singleShot(0, [&ends] { EXPECT_EQ(write(ends[1], "x", 1), 1); });
        Click(reading, "Command1");
    };
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, startReading);
        Click(menu, "Command2");
    });
    menu.exec();
    EXPECT_EQ(accepted, 1);
    EXPECT_GT(bench->state.MainCodeCount, 0);
    EXPECT_LT(bench->state.MainCodeCount, 32767);
    close(ends[0]);
    close(ends[1]);
}

TEST(EvalProgram, EndsWellOnASignal) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        QProcess program;
        // The beginning of the trace shows that start-up has begun.
        program.start(QStringLiteral(VX3260_EVAL), {"--simulated", "--trace", "/dev/stdout"});
        ASSERT_TRUE(program.waitForReadyRead(-1));
        // A terminal that closes may send SIGHUP twice.
        kill(static_cast<pid_t>(program.processId()), signal);
        kill(static_cast<pid_t>(program.processId()), SIGHUP);
        program.waitForFinished(-1);
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
    }
}

}  // namespace
}  // namespace vx3260::test
