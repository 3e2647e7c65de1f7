#include <gtest/gtest.h>

#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include "forms/config/AuxCalForm.h"
#include "forms/config/MainCalForm.h"
#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

class CalibrationFormsTest : public testing::Test {
  protected:
    CalibrationFormsTest() { bench.Chip().Preset(modeAt, 0); }

    template <typename Opened>
    void Open() {
        form = std::make_unique<Opened>(*bench.services);
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    QLineEdit& Box(const char* name) { return Find<QLineEdit>(*form, name); }
    void Enter(const char* box, const QString& text) {
        bench.messages.shown.clear();
        Box(box).setText(text);
        QTest::keyClick(&Box(box), Qt::Key_Return);
    }
    /// The texts of a row of bit labels, from the most significant down.
    std::string Bits(int first, int last) {
        std::string bits;
        const int step = first < last ? 1 : -1;
        for (int n = first; n != last + step; n += step) {
            bits += Find<QLabel>(*form, ("Label" + std::to_string(n)).c_str()).text().toStdString();
        }
        return bits;
    }

    SimulatedBench bench;
    std::unique_ptr<Form> form;
};

TEST_F(CalibrationFormsTest, ShowBothRegisters) {
    bench.Chip().Preset(mainZeroScaleAt, 0x00ABCD);
    Open<MainCalForm>();
    TakePicture(*form, "MainCalForm");
    EXPECT_EQ(form->windowTitle(),
              QStringLiteral("VX3260 Evaluation Software - Program Calibration Registers"));
    ExpectTexts(*form, {{"Label53", "Main Calibration Registers"},
                        {"Frame2", "Current Contents of Zero Scale Calibration Register"},
                        {"Frame1", "Current Contents of Full Scale Calibration Register"},
                        {"Label55", "Enter new Value (Hex):"},
                        {"Label54", "Enter new Value (Hex):"},
                        {"MainZeroLabel", "00ABCD"},
                        {"MainFullLabel", "400000"},
                        {"Command1", "B&ack"}});
    EXPECT_EQ(Box("MainZeroText").text(), QStringLiteral("00ABCD"));
    EXPECT_EQ(Bits(52, 29), "000000001010101111001101");
    EXPECT_EQ(Bits(1, 24), "010000000000000000000000");
    Open<AuxCalForm>();
    TakePicture(*form, "AuxCalForm");
    ExpectTexts(*form, {{"Label53", "Aux Calibration Registers"},
                        {"AuxZeroLabel", "8000"},
                        {"AuxFullLabel", "4000"}});
    EXPECT_EQ(Box("AuxFullText").text(), QStringLiteral("4000"));
    EXPECT_EQ(Bits(52, 37), "1000000000000000");
    EXPECT_EQ(Bits(1, 16), "0100000000000000");
}

TEST_F(CalibrationFormsTest, TakeAnEntryOnEnter) {
    const struct {
        bool main;
        const char* box;
        unsigned address;
        const char* typed;
        std::uint32_t contents;
        const char* shown;
    } cases[] = {
        {true, "MainZeroText", mainZeroScaleAt, "ABCDEF", 0xABCDEF, "ABCDEF"},
        {true, "MainZeroText", mainZeroScaleAt, "FFFF", 0x00FFFF, "00FFFF"},
        {true, "MainFullText", mainFullScaleAt, "1000000", 0xFFFFFF, "FFFFFF"},
        {true, "MainFullText", mainFullScaleAt, "0", 0, "000000"},
        {false, "AuxZeroText", auxZeroScaleAt, "FFFF", 0x00FF, "00FF"},
        {false, "AuxZeroText", auxZeroScaleAt, "0FFFF", 0xFFFF, "FFFF"},
        {false, "AuxFullText", auxFullScaleAt, "12345", 0xFFFF, "FFFF"},
        {false, "AuxFullText", auxFullScaleAt, "7fff", 0x7FFF, "7FFF"},
    };
    for (const auto& c : cases) {
        if (c.main) {
            Open<MainCalForm>();
        } else {
            Open<AuxCalForm>();
        }
        Enter(c.box, QString::fromLatin1(c.typed));
        EXPECT_EQ(bench.Chip().Contents(c.address), c.contents) << c.typed;
        EXPECT_EQ(Box(c.box).text(), QString::fromLatin1(c.shown)) << c.typed;
        EXPECT_TRUE(bench.messages.shown.empty()) << c.typed;
    }
}

TEST_F(CalibrationFormsTest, TakeAPastedText) {
    Open<MainCalForm>();
    QApplication::clipboard()->setText(QStringLiteral("123456"));
    Box("MainZeroText").selectAll();
    Box("MainZeroText").paste();
    QTest::keyClick(&Box("MainZeroText"), Qt::Key_Return);
    EXPECT_EQ(bench.Chip().Contents(mainZeroScaleAt), 0x123456U);
}

TEST_F(CalibrationFormsTest, TellWhenTheReadBackDiffers) {
    const char* const error =
        "An Error has occurred , The Register may not be programmed correctly";
    Open<AuxCalForm>();
    Enter("AuxZeroText", QStringLiteral("8000"));  // -32512, which reads back as 0x8100
    EXPECT_EQ(bench.messages.Texts(), std::vector<std::string>{error});
    EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::Exclamation);
    EXPECT_EQ(bench.Chip().Contents(auxZeroScaleAt), 0x8100U);
    ExpectTexts(*form, {{"AuxZeroLabel", "8000"}});
    Enter("AuxFullText", QStringLiteral("1234"));  // redraws both
    ExpectTexts(*form, {{"AuxZeroLabel", "FFFF8100"}, {"AuxFullLabel", "1234"}});
}

TEST_F(CalibrationFormsTest, EmptyABoxThatHoldsNoLiteral) {
    Open<MainCalForm>();
    for (const char* text : {"12G", "", "  ", "-1", "1e5.", "100000000"}) {
        Box("MainFullText").setFocus();
        Enter("MainZeroText", QString::fromLatin1(text));
        EXPECT_EQ(Box("MainZeroText").text(), QString()) << text;
        EXPECT_TRUE(Box("MainZeroText").hasFocus()) << text;
        EXPECT_TRUE(bench.messages.shown.empty()) << text;
    }
    Enter("MainZeroText", QString(10000, QLatin1Char('1')));
    EXPECT_EQ(Box("MainZeroText").text(), QString());
    EXPECT_EQ(bench.Chip().Contents(mainZeroScaleAt), 0x800000U);
}

TEST_F(CalibrationFormsTest, RefuseEachKeyOutsidePowerDown) {
    bench.Chip().Preset(modeAt, 1);
    Open<MainCalForm>();
    const std::string refusal =
        "The VX3260 must be placed in Power-Down Mode to program the Calibration Registers";
    Box("MainZeroText").clear();
    QTest::keyClicks(&Box("MainZeroText"), QStringLiteral("1x"));
    QTest::keyClick(&Box("MainZeroText"), Qt::Key_Backspace);
    EXPECT_EQ(Box("MainZeroText").text(), QStringLiteral("1"));
    QTest::keyClick(&Box("MainZeroText"), Qt::Key_Return);
    EXPECT_EQ(bench.messages.Texts(), std::vector<std::string>(4, refusal));
    EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::Exclamation);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Delete, Qt::Key_F5, Qt::Key_Home}) {
        QTest::keyClick(&Box("MainZeroText"), key);
    }
    QTest::keyClick(&Box("MainZeroText"), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(bench.messages.shown.size(), 4U);
    EXPECT_EQ(bench.Chip().Contents(mainZeroScaleAt), 0x800000U);
}

}  // namespace
}  // namespace vx3260
