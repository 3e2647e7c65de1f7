// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/config/MainCalForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

using CalibrationFormsTest = FormTest;

TEST_F(CalibrationFormsTest, RefuseEachKeyOutsidePowerDown) {
    Preset(modeAt, 1);
    Open<MainCalForm>();
    Box("MainZeroText").clear();
    const std::tuple<Qt::Key, Qt::KeyboardModifier, bool> keys[] = {
        {Qt::Key_1, Qt::NoModifier, true},         {Qt::Key_X, Qt::NoModifier, true},
        {Qt::Key_Backspace, Qt::NoModifier, true}, {Qt::Key_Delete, Qt::NoModifier, false},
        {Qt::Key_Left, Qt::NoModifier, false},     {Qt::Key_1, Qt::ControlModifier, false},
        {Qt::Key_Return, Qt::NoModifier, true}};
    for (const auto& [key, modifier, refused] : keys) {
        QTest::keyClick(&Box("MainZeroText"), key, modifier);
        EXPECT_EQ(bench->messages.Take(),
                  refused ? "Exclamation: The VX3260 must be placed in Power-Down Mode to program "
                            "the Calibration Registers"
                          : "")
            << key;
    }
    Expect("MainZeroText: 1");
    EXPECT_TRUE(bench->port->writes.empty());
}

}  // namespace
}  // namespace vx3260::test
