#include "forms/config/ModeForm.h"

#include <gtest/gtest.h>

#include <QTest>

#include "support/Forms.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

class ModeFormTest : public testing::Test {
  protected:
    void Open(const Faults& faults = {}) {
        bench = std::make_unique<SimulatedBench>(faults);
        form = std::make_unique<ModeForm>(*bench->services);
    }
    void Click(const char* option) { Find<QRadioButton>(*form, option).click(); }
    bool Selected(const char* option) { return Find<QRadioButton>(*form, option).isChecked(); }
    QString Label(const char* name) { return Find<QLabel>(*form, name).text(); }

    std::unique_ptr<SimulatedBench> bench;
    std::unique_ptr<ModeForm> form;
};

TEST_F(ModeFormTest, CalibratesAndReadsTheRegisterAgain) {
    struct {
        const char* option;
        const char* prompt;
        MessageIcon icon;
    } const cases[] = {
        {"OptMD5", "", MessageIcon::None},
        {"OptMD6", "Please Connect a Zero Scale signal to the Analog Input",
         MessageIcon::Information},
        {"OptMD7", "Please connect a Full Scale signal to the Analog Input", MessageIcon::Question},
    };
    for (const auto& c : cases) {
        Open();
        bench->Chip().Preset(modeAt, 0x53);
        EXPECT_EQ(Label("CalLabel"), QString());
        bench->messages.atBox = [this] { EXPECT_EQ(bench->Chip().Contents(modeAt), 0x53U); };
        Click(c.option);
        EXPECT_EQ(bench->messages.Texts().size(), *c.prompt == '\0' ? 0U : 1U);
        if (*c.prompt != '\0') {
            EXPECT_EQ(bench->messages.shown.at(0).text, c.prompt);
            EXPECT_EQ(bench->messages.shown.at(0).icon, c.icon);
        }
        EXPECT_EQ(Label("modeLabel"), QStringLiteral("51")) << c.option;  // idle now
        EXPECT_TRUE(Selected("OptMD1")) << c.option;
        EXPECT_EQ(Label("CalLabel"), QString());
        EXPECT_EQ(bench->state.ModeRegisterValue, 0x51);
    }
}

TEST_F(ModeFormTest, IsGoneThroughWithTheArrowKeys) {
    Open();
    form->show();
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    EXPECT_TRUE(Find<QRadioButton>(*form, "OptMD3").hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    EXPECT_EQ(bench->Chip().Contents(modeAt), 0x02U);
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ModeFormTest, ShowsTheRegisterOfBeforeAnInternalZeroCalibration) {
    Open();
    Click("OptMD4");
    EXPECT_TRUE(Selected("OptMD3"));
    EXPECT_EQ(Label("modeLabel"), QStringLiteral("3"));
    EXPECT_EQ(Label("Label7"), QStringLiteral("1"));
    EXPECT_EQ(bench->Chip().Contents(modeAt), 0x01U);
    EXPECT_NE(bench->Chip().Contents(mainZeroScaleAt), 0x800000U);
    EXPECT_TRUE(bench->messages.shown.empty());
}

TEST_F(ModeFormTest, TellsACalibrationThatDoesNotEnd) {
    for (const char* fault : {"rdy-stuck-high", "board-gone=0"}) {
        for (const char* option : {"OptMD4", "OptMD5", "OptMD6"}) {
            Faults faults;
            AddFault(fault, faults);
            Open(faults);
            std::vector<QString> atBoxes;
            bench->messages.atBox = [&] {
                atBoxes.push_back(Label("CalLabel"));
                EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            };
            Click(option);
            EXPECT_EQ(bench->messages.shown.back().text, "Error Calibrating VX3260");
            EXPECT_EQ(bench->messages.shown.back().icon, MessageIcon::Exclamation);
            EXPECT_EQ(atBoxes.back(), QStringLiteral("VX3260 Calibrating")) << option;
            EXPECT_EQ(Label("CalLabel"), QString());
        }
    }
}

TEST_F(ModeFormTest, HasItsTexts) {
    Open();
    EXPECT_EQ(form->windowTitle(),
              QStringLiteral("VX3260 Evaluation Software - Program Mode Register"));
    ExpectTexts(*form, {{"Frame2", "Mode of Operation"},
                        {"Frame3", "In Power Down Mode"},
                        {"Frame4", "Channel Configuartion"},
                        {"Frame5", "Input Buffering"},
                        {"Frame6", "Current Contents of Mode Register"},
                        {"Label9", "Mode Register"},
                        {"OptMD0", "Power Down Mode"},
                        {"OptMD1", "Idle Mode"},
                        {"OptMD2", "Single Conversion"},
                        {"OptMD3", "Continuous Conversion"},
                        {"OptMD4", "Internal Zero Scale Cal."},
                        {"OptMD5", "Internal Full Scale Cal."},
                        {"OptMD6", "System Zero Scale Cal."},
                        {"OptMD7", "System Full Scale Cal."},
                        {"OptOscOff", "Power Down Oscillator"},
                        {"OptOscOn", "Power Up Oscillator"},
                        {"OptChConClr", "CHCON Cleared"},
                        {"OptChConSet", "CHCON Set"},
                        {"OptBufOn", "Buffered"},
                        {"OptBufOff", "Unbuffered"},
                        {"Command3", "B&ack"}});
}

}  // namespace
}  // namespace vx3260
