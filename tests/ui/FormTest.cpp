// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Form.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "forms/config/MainCalForm.h"
#include "forms/config/ModeForm.h"
#include "forms/data/ReadMainDataForm.h"
#include "forms/shell/ProgramForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

class AnyFormTest : public FormTest {
  protected:
    static void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    static void Type(const char* text) {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
    }
};

TEST_F(AnyFormTest, ShowsWhatItsReadingsComeFrom) {
    Open<ModeForm>();
    Expect("BoardLabel: Simulated board");
    UseBoardWith("dout-stuck-high");
    Open<ModeForm>();
    Expect("BoardLabel: Simulated board does not answer");
    bench->services->boardLabel.clear();
    ClickOn("OptBufOff");
    Expect("BoardLabel: Board does not answer");
    bench->port->Answers().Read(0x41, 8, 3);
    Open<ProgramForm>();
    Expect("BoardLabel: Board on port 0x378");
    bench->state.PortClaimFailed = true;
    Open<ProgramForm>();
    Expect("BoardLabel: No printer port");
}

TEST_F(AnyFormTest, ClicksTheFocusedButtonOnEnterAndNoOther) {
    Open<MainCalForm>();
    Find(*form, "MainFullText").setFocus();
    Press(Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    Find(*form, "Command1").setFocus();
    Press(Qt::Key_Enter);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(AnyFormTest, SelectsTheTextOfAnEntryToTypeOver) {
    Preset(modeAt, 0);
    Preset(mainZeroScaleAt, 0x123456);
    Open<MainCalForm>();
    Type("ABCDEF");
    Press(Qt::Key_Return);
    EXPECT_EQ(Contents(mainZeroScaleAt), 0xABCDEFU);
    Type("12");
    Press(Qt::Key_Return);
    EXPECT_EQ(Contents(mainZeroScaleAt), 0x12U);
    QTest::mouseClick(&Box("MainFullText"), Qt::LeftButton);
    EXPECT_EQ(Box("MainFullText").selectedText(), QStringLiteral("400000"));
}

TEST_F(AnyFormTest, IsStoppedByTheButtonWhileItReads) {
    Open<ReadMainDataForm>();
    auto& stop = Find<QAbstractButton>(*form, "StopButton");
    EXPECT_FALSE(stop.isVisible());
    QTimer::singleShot(0, &stop, [&stop] {
        EXPECT_TRUE(stop.isVisible());
        QTest::mouseClick(&stop, Qt::LeftButton);
    });
    EXPECT_EQ(ClickOn("Command1"), "Exclamation: User Interruption of Reading");
    EXPECT_FALSE(stop.isVisible());
    EXPECT_TRUE(form->isVisible());
}

TEST_F(AnyFormTest, GetsScrollBarsWhereItIsLargerThanItsScreen) {
    Open<ModeForm>();
    EXPECT_EQ(form->findChild<QScrollArea*>(), nullptr);
    form = std::make_unique<ModeForm>(*bench->services);
    form->setMinimumSize(form->screen()->availableSize() * 2);
    ShowActive(*form);
    form->setMinimumSize(0, 0);
    form->resize(200, 200);
    QCoreApplication::processEvents();
    EXPECT_TRUE(Find(*form, "OptMD3").hasFocus());
    auto& area = Find<QScrollArea>(*form, "ScrollArea");
    area.ensureWidgetVisible(&Find(*form, "Command3"));
    EXPECT_GT(area.verticalScrollBar()->value(), 0);
    QTest::mouseClick(&Find(*form, "Command3"), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
}

}  // namespace
}  // namespace vx3260::test
