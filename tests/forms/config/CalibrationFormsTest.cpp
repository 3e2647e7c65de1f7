// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>

#include "forms/config/AuxCalForm.h"
#include "forms/config/MainCalForm.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

class CalibrationFormsTest : public FormTest {
  protected:
    CalibrationFormsTest() { Preset(modeAt, 0); }
};

TEST_F(CalibrationFormsTest, ShowBothRegisters) {
    Preset(mainZeroScaleAt, 0x00ABCD);
    Open<MainCalForm>();
    TakePicture(*form, "MainCalForm");
    Expect(
        "MainCalForm: VX3260 Evaluation Software - Program Calibration Registers | "
        "Label53: Main Calibration Registers | "
        "Frame2: Current Contents of Zero Scale Calibration Register | "
        "Frame1: Current Contents of Full Scale Calibration Register | "
        "Label55: Enter new Value (Hex): | Label54: Enter new Value (Hex): | "
        "MainZeroLabel: 00ABCD | MainZeroText: 00ABCD | MainFullLabel: 400000 | Command1: B&ack");
    EXPECT_EQ(BitsOf(*form, 52, 29), "000000001010101111001101");
    EXPECT_EQ(BitsOf(*form, 1, 24), "010000000000000000000000");
    Open<AuxCalForm>();
    TakePicture(*form, "AuxCalForm");
    Expect(
        "AuxCalForm: VX3260 Evaluation Software - Program Calibration Registers | "
        "Label53: Aux Calibration Registers | "
        "AuxZeroLabel: 8000 | AuxFullLabel: 4000 | AuxFullText: 4000");
    EXPECT_EQ(BitsOf(*form, 52, 37), "1000000000000000");
    EXPECT_EQ(BitsOf(*form, 1, 16), "0100000000000000");
}

TEST_F(CalibrationFormsTest, TakeAnEntryOnEnter) {
    const std::tuple<const char*, unsigned, const char*, std::uint32_t, const char*> cases[] = {
        {"MainZeroText", mainZeroScaleAt, "ABCDEF", 0xABCDEF, "ABCDEF"},
        {"MainZeroText", mainZeroScaleAt, "FFFF", 0x00FFFF, "00FFFF"},
        {"MainFullText", mainFullScaleAt, "1000000", 0xFFFFFF, "FFFFFF"},
        {"AuxZeroText", auxZeroScaleAt, "FFFF", 0x00FF, "00FF"},
        {"AuxZeroText", auxZeroScaleAt, "0FFFF", 0xFFFF, "FFFF"},
        {"AuxFullText", auxFullScaleAt, "12345", 0xFFFF, "FFFF"},
        {"AuxFullText", auxFullScaleAt, "7fff", 0x7FFF, "7FFF"},
    };
    for (const auto& [box, address, typed, contents, shown] : cases) {
        if (box[0] == 'M') {
            Open<MainCalForm>();
        } else {
            Open<AuxCalForm>();
        }
        EXPECT_EQ(Enter(box, typed), "") << typed;
        EXPECT_EQ(Contents(address), contents) << typed;
        EXPECT_EQ(TextOf(*form, box), shown) << typed;
    }
}

TEST_F(CalibrationFormsTest, TellWhenTheReadBackDiffers) {
    Open<AuxCalForm>();
    EXPECT_EQ(Enter("AuxZeroText", "8000"),  // -32512, which reads back as 0x8100
              "Exclamation: An Error has occurred , The Register may not be programmed correctly");
    EXPECT_EQ(Contents(auxZeroScaleAt), 0x8100U);
    Expect("AuxZeroLabel: 8000");
    Enter("AuxFullText", "1234");  // redraws both
    Expect("AuxZeroLabel: FFFF8100 | AuxFullLabel: 1234");
}

TEST_F(CalibrationFormsTest, EmptyABoxThatHoldsNoLiteral) {
    Open<MainCalForm>();
    for (const char* text : {"12G", "", "-1", "100000000"}) {
        Box("MainFullText").setFocus();
        EXPECT_EQ(Enter("MainZeroText", text), "") << text;
        Expect("MainZeroText:");
        EXPECT_TRUE(Box("MainZeroText").hasFocus()) << text;
    }
    EXPECT_EQ(Contents(mainZeroScaleAt), 0x800000U);
    QApplication::clipboard()->setText(QStringLiteral("123456"));
    Box("MainZeroText").paste();
    QTest::keyClick(&Box("MainZeroText"), Qt::Key_Return);
    EXPECT_EQ(Contents(mainZeroScaleAt), 0x123456U);
}

TEST_F(CalibrationFormsTest, RefuseEachKeyOutsidePowerDown) {
    Preset(modeAt, 1);
    Open<MainCalForm>();
    Box("MainZeroText").clear();
    const std::tuple<Qt::Key, Qt::KeyboardModifier, bool> keys[] = {
        {Qt::Key_1, Qt::NoModifier, true},         {Qt::Key_X, Qt::NoModifier, true},
        {Qt::Key_Backspace, Qt::NoModifier, true}, {Qt::Key_Return, Qt::NoModifier, true},
        {Qt::Key_Delete, Qt::NoModifier, false},   {Qt::Key_Left, Qt::NoModifier, false},
        {Qt::Key_1, Qt::ControlModifier, false}};
    for (const auto& [key, modifier, refused] : keys) {
        QTest::keyClick(&Box("MainZeroText"), key, modifier);
        EXPECT_EQ(bench->messages.Take(),
                  refused ? "Exclamation: The VX3260 must be placed in Power-Down Mode to program "
                            "the Calibration Registers"
                          : "")
            << key;
    }
    Expect("MainZeroText: 1");
    EXPECT_EQ(Contents(mainZeroScaleAt), 0x800000U);
}

}  // namespace
}  // namespace vx3260::test
