#include "forms/shell/MainMenuForm.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

class MainMenuFormTest : public testing::Test {
  protected:
    void Open() {
        form = std::make_unique<MainMenuForm>(*bench.services);
        form->show();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    /// The caption of the form that a button opens; empty when it opens none.
    QString OpenedBy(const char* button) {
        QString title;
        WhileModal([&] { Find<QPushButton>(*form, button).click(); },
                   [&](QDialog& opened) { title = opened.windowTitle(); });
        return title;
    }
    std::vector<std::string> Shown() { return bench.messages.Texts(); }

    SimulatedBench bench;
    std::unique_ptr<MainMenuForm> form;
};

TEST_F(MainMenuFormTest, HasItsButtonsInOrder) {
    Open();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("VX3260 Evaluation Software - Main Menu"));
    EXPECT_EQ(Find<QLabel>(*form, "Label1").text(), QStringLiteral("Main Menu"));
    EXPECT_EQ(Find<QLabel>(*form, "BadgeLabel").text(), QStringLiteral("Simulated board"));
    ExpectTexts(*form, {{"Command1", "&Program VX3260"},
                        {"Command2", "Read Data from &Main ADC"},
                        {"Command3", "Mai&n ADC Noise Analysis"},
                        {"Command4", "Re&set VX3260"},
                        {"Command5", "&Read from File"},
                        {"Command6", "&Write to File"},
                        {"Command7", "A&bout"},
                        {"Command8", "&Quit"},
                        {"Command9", "Read Data from &Aux ADC"},
                        {"Command10", "A&ux ADC Noise Analysis"},
                        {"Command11", "Dual ADC Display"}});
    TakePicture(*form, "MainMenuForm");
    const QWidget* at = &Find<QPushButton>(*form, "Command1");
    for (int number = 2; number <= 11; ++number) {
        do {
            at = at->nextInFocusChain();
        } while (qobject_cast<const QPushButton*>(at) == nullptr);
        EXPECT_EQ(at->objectName(), QStringLiteral("Command%1").arg(number));
    }
    for (const char* name : {"Frame1", "Line1", "Line2"}) {
        Find<QFrame>(*form, name);
    }
}

TEST_F(MainMenuFormTest, OpensAFormForEveryButton) {
    bench.state.MainCodes.assign(10, 8388608);
    bench.state.AuxCodes.assign(10, 32768);
    bench.state.MainCodeCount = bench.state.AuxCodeCount = 10;
    bench.Chip().Preset(modeAt, 0x23);
    Open();
    const struct {
        const char* button;
        const char* title;
    } cases[] = {{"Command1", "Program Menu"},    {"Command2", "Read Data From Main Data Register"},
                 {"Command3", "Noise Analysis"},  {"Command5", "Read from File"},
                 {"Command6", "Write to File"},   {"Command9", "Read Data From Aux Data Register"},
                 {"Command10", "Noise Analysis"}, {"Command11", "Dual ADC Display"}};
    for (const auto& c : cases) {
        EXPECT_EQ(OpenedBy(c.button),
                  QStringLiteral("VX3260 Evaluation Software - ") + QString::fromLatin1(c.title));
    }
    EXPECT_TRUE(Shown().empty());
    EXPECT_EQ(bench.Chip().Contents(modeAt), 0x23U);
}

TEST_F(MainMenuFormTest, AsksBeforeItPutsTheChipInContinuousConversion) {
    const struct {
        const char* button;
        std::uint32_t mode;
        MessageAnswer answer;
        std::uint32_t after;
    } cases[] = {{"Command2", 0x02, MessageAnswer::No, 0x02},
                 {"Command9", 0x02, MessageAnswer::No, 0x02},
                 {"Command11", 0x02, MessageAnswer::No, 0x02},
                 {"Command2", 0x01, MessageAnswer::Yes, 0x03},
                 {"Command9", 0x10, MessageAnswer::Yes, 0x13},
                 {"Command11", 0x14, MessageAnswer::Yes, 0x17}};
    Open();
    for (const auto& c : cases) {
        bench.Chip().Preset(modeAt, c.mode);
        bench.messages.shown.clear();
        bench.messages.answers = {c.answer};
        EXPECT_EQ(OpenedBy(c.button).isEmpty(), c.answer == MessageAnswer::No);
        EXPECT_EQ(bench.Chip().Contents(modeAt), c.after);
        ASSERT_EQ(Shown().size(), 1U);
        EXPECT_EQ(
            bench.messages.shown[0].text,
            "This function requires that the VX3260,\r\nbe placed in Continuous Conversion "
            "Mode,\r\n\r\nDo you wish to Place the VX3260\r\nin Continuous Conversion Mode ?");
        EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::None);
        EXPECT_EQ(bench.messages.shown[0].buttons, MessageButtons::YesNo);
    }
}

TEST_F(MainMenuFormTest, ChecksTheCountBeforeTheNoiseAnalysis) {
    Open();
    const struct {
        const char* button;
        Converter converter;
    } twins[] = {{"Command3", Converter::Main}, {"Command10", Converter::Aux}};
    for (const auto& twin : twins) {
        const CodeBlock block = bench.state.BlockOf(twin.converter);
        block.codes.assign(5001, 32768);
        for (const int count : {0, 9, 10, 5000, 5001}) {
            block.count = static_cast<std::int16_t>(count);
            bench.messages.shown.clear();
            const bool fits = count == 10 || count == 5000;
            EXPECT_EQ(OpenedBy(twin.button).isEmpty(), !fits) << count;
            EXPECT_EQ(Shown().size(), fits ? 0U : 1U) << count;
        }
        EXPECT_EQ(Shown().back(),
                  "For Data Analysis the number of Codes read must be between 9 and 5000");
        block.count = 0;
    }
}

TEST_F(MainMenuFormTest, ShowsTheErrorOfANoiseFormThatCannotOpen) {
    Open();
    bench.state.MainCodes.assign(20, 8388608);
    bench.state.MainCodes[19] = -2147483648.0;
    bench.state.MainCodeCount = 20;
    EXPECT_EQ(OpenedBy("Command3"), QString());
    EXPECT_EQ(Shown(), std::vector<std::string>{"Overflow"});
    EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::Critical);
}

TEST_F(MainMenuFormTest, QuitsWhenTheAnswerIsYes) {
    Open();
    bench.messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
    Find<QPushButton>(*form, "Command8").click();
    EXPECT_TRUE(bench.system.ended.empty());
    Find<QPushButton>(*form, "Command8").click();
    EXPECT_EQ(bench.system.ended, std::vector<int>{0});
    EXPECT_EQ(bench.messages.shown[0].text, "Are you sure you want to quit");
    EXPECT_EQ(bench.messages.shown[0].buttons, MessageButtons::YesNo);
    EXPECT_EQ(bench.messages.shown[0].icon, MessageIcon::None);
}

TEST_F(MainMenuFormTest, IgnoresEscapeAndClosesWithoutAQuestion) {
    Open();
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    form->close();
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(Shown().empty());
}

TEST_F(MainMenuFormTest, ChoosesThePrinterPort) {
    bench.state.PrinterPortEnabled = {true, true, false};
    Open();
    const char* const items[] = {"MnuLPT1", "MnuLPT2", "MnuPRN"};
    const auto checked = [&] {
        std::string names;
        for (const char* item : items) {
            names += Find<QAction>(*form, item).isChecked() ? item : "-";
        }
        return names;
    };
    EXPECT_EQ(checked(), "MnuLPT1--");
    EXPECT_FALSE(Find<QAction>(*form, "MnuPRN").isEnabled());
    Find<QAction>(*form, "MnuLPT2").trigger();
    EXPECT_EQ(checked(), "-MnuLPT2-");
    EXPECT_EQ(bench.state.PortAddress, 632);
    Find<QAction>(*form, "MnuLPT2").trigger();  // stays checked
    EXPECT_EQ(checked(), "-MnuLPT2-");
    Find<QAction>(*form, "MnuPRN").setEnabled(true);
    Find<QAction>(*form, "MnuPRN").trigger();
    EXPECT_EQ(bench.state.PortAddress, 956);
    EXPECT_EQ(Find<QAction>(*form, "MnuLPT1").text(), QStringLiteral("LPT1"));
    EXPECT_EQ(Find<QAction>(*form, "MnuLPT2").text(), QStringLiteral("LPT2"));
    EXPECT_EQ(Find<QAction>(*form, "MnuPRN").text(), QStringLiteral("PRN"));
}

TEST_F(MainMenuFormTest, OpensThePortMenuWithAltP) {
    Open();
    auto& menu = Find<QMenu>(*form, "MnuPrinter");
    EXPECT_EQ(menu.title(), QStringLiteral("&Printer Port"));
    Find<QPushButton>(*form, "Command1").setEnabled(true);
    QTest::keyClick(form.get(), Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
}

TEST_F(MainMenuFormTest, AnswersAsTheWiresDo) {
    struct {
        const char* fault;
        std::size_t questions;
    } const cases[] = {{"dout-stuck-high", 1}, {"dout-stuck-low", 1}, {"board-gone=0", 1}};
    for (const auto& c : cases) {
        Faults faults;
        AddFault(c.fault, faults);
        SimulatedBench faulty(faults);
        const MainMenuForm menu(*faulty.services);
        Find<QPushButton>(menu, "Command2").click();
        ASSERT_EQ(faulty.messages.shown.size(), c.questions) << c.fault;
        EXPECT_TRUE(faulty.messages.shown[0].text.starts_with("This function requires"));
    }
}

}  // namespace
}  // namespace vx3260
