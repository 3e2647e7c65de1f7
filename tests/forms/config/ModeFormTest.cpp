// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/ModeForm.h"

#include "support/Forms.h"

namespace vx3260::test {
namespace {

using ModeFormTest = FormTest;

TEST_F(ModeFormTest, CalibratesAndReadsTheRegisterAgain) {
    const std::pair<const char*, const char*> cases[] = {
        {"OptMD5", ""},
        {"OptMD6", "Information: Please Connect a Zero Scale signal to the Analog Input"},
        {"OptMD7", "Question: Please connect a Full Scale signal to the Analog Input"},
    };
    bench->messages.atBox = [this] { EXPECT_EQ(Contents(modeAt), 0x53U); };
    for (const auto& [option, prompt] : cases) {
        Preset(modeAt, 0x03);
        Open<ModeForm>();
        Preset(modeAt, 0x53);
        EXPECT_EQ(ClickOn(option), prompt);
        Expect("modeLabel: 51 | CalLabel:");  // idle now
        EXPECT_TRUE(Checked(*form, "OptMD1")) << option;
        EXPECT_EQ(bench->state.ModeRegisterValue, 0x51);
    }
}

TEST_F(ModeFormTest, ArrowKeysMoveTheFocusAndTabEntersAtTheSelectedOption) {
    Open<ModeForm>();
    const auto press = [this](Qt::Key key, Qt::KeyboardModifier modifier = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifier);
        EXPECT_EQ(Contents(modeAt), 0x03U);
        return QApplication::focusWidget()->objectName();
    };
    EXPECT_TRUE(Find(*form, "OptMD3").hasFocus());
    EXPECT_EQ(press(Qt::Key_Down), "OptMD4");
    EXPECT_EQ(press(Qt::Key_Return), "OptMD4");
    EXPECT_EQ(press(Qt::Key_Up), "OptMD3");
    EXPECT_EQ(press(Qt::Key_Left), "OptMD2");
    EXPECT_EQ(press(Qt::Key_Tab), "OptOscOn");
    EXPECT_EQ(press(Qt::Key_Backtab, Qt::ShiftModifier), "OptMD3");
    EXPECT_EQ(press(Qt::Key_Up), "OptMD2");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Contents(modeAt), 0x02U);
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ModeFormTest, ReportsACalibrationThatDoesNotEnd) {
    UseBoardWith("rdy-stuck-high");
    Open<ModeForm>();
    std::string calibrating;
    bench->messages.atBox = [&] {
        calibrating = TextOf(*form, "CalLabel");
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    };
    for (const char* option : {"OptMD4", "OptMD5"}) {
        EXPECT_EQ(ClickOn(option), "Exclamation: Error Calibrating VX3260");
        EXPECT_EQ(calibrating, "VX3260 Calibrating") << option;
        Expect("CalLabel:");
    }
}

}  // namespace
}  // namespace vx3260::test
