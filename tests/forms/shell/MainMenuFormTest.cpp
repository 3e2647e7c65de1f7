// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/MainMenuForm.h"

#include <QMenu>
#include <QPushButton>

#include "support/Forms.h"

namespace vx3260::test {
namespace {

class MainMenuFormTest : public FormTest {
  protected:
    void Open() { FormTest::Open<MainMenuForm>(); }
    QAction& Item(const char* name) { return Find<QAction>(*form, name); }
};

TEST_F(MainMenuFormTest, HasItsButtonsInOrder) {
    Open();
    Expect(
        "MainMenuForm: VX3260 Evaluation Software - Main Menu | Label1: Main Menu | "
        "BadgeLabel: Simulated board | Command1: &Program VX3260 | "
        "Command2: Read Data from &Main ADC | Command3: Mai&n ADC Noise Analysis | "
        "Command4: Re&set VX3260 | Command5: &Read from File | Command6: &Write to File | "
        "Command7: A&bout | Command8: &Quit | Command9: Read Data from &Aux ADC | "
        "Command10: A&ux ADC Noise Analysis | Command11: Dual ADC Display");
    TakePicture(*form, "MainMenuForm");
    const QWidget* at = &Find(*form, "Command1");
    for (int number = 2; number <= 11; ++number) {
        do {
            at = at->nextInFocusChain();
        } while (qobject_cast<const QPushButton*>(at) == nullptr);
        EXPECT_EQ(at->objectName(), QStringLiteral("Command%1").arg(number));
    }
}

TEST_F(MainMenuFormTest, OpensAFormForEveryButton) {
    bench->Fill(Converter::Main, std::vector<double>(10, 8388608));
    bench->Fill(Converter::Aux, std::vector<double>(10, 32768));
    Preset(modeAt, 0x23);
    Open();
    const std::pair<const char*, const char*> cases[] = {
        {"Command1", "ProgramForm: Program Menu"},
        {"Command2", "ReadMainDataForm: Read Data From Main Data Register"},
        {"Command3", "MainNoiseForm: Noise Analysis"},
        {"Command4", "ResetForm: Reset VX3250"},
        {"Command5", "ReadFileForm: Read from File"},
        {"Command6", "WriteFileForm: Write to File"},
        {"Command7", "aboutform: About VX3260 Evaluation Software"},
        {"Command9", "ReadAuxDataForm: Read Data From Aux Data Register"},
        {"Command10", "AuxNoiseForm: Noise Analysis"},
        {"Command11", "ReadDualDataForm: Dual ADC Display"}};
    for (const auto& [button, opened] : cases) {
        EXPECT_EQ(OpenedBy(*form, button), opened);
    }
    EXPECT_EQ(bench->messages.Take(), "");
    EXPECT_EQ(Contents(modeAt), 0x23U);
}

const std::string conversionQuestion =
    "Plain yes or no: This function requires that the VX3260,\r\nbe placed in Continuous "
    "Conversion Mode,\r\n\r\nDo you wish to Place the VX3260\r\nin Continuous Conversion Mode ?";

TEST_F(MainMenuFormTest, AsksBeforeItPutsTheChipInContinuousConversion) {
    Open();
    const std::pair<std::uint32_t, std::uint32_t> modes[] = {
        {0x01, 0x03}, {0x10, 0x13}, {0x14, 0x17}};
    for (const char* button : {"Command2", "Command9", "Command11"}) {
        for (const auto& [before, after] : modes) {
            Preset(modeAt, before);
            bench->messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
            EXPECT_EQ(OpenedBy(*form, button), "");
            EXPECT_EQ(Contents(modeAt), before);
            EXPECT_NE(OpenedBy(*form, button), "");
            EXPECT_EQ(Contents(modeAt), after);
            EXPECT_EQ(bench->messages.Take(), conversionQuestion + "\n" + conversionQuestion);
        }
    }
}

TEST_F(MainMenuFormTest, ChecksTheCountBeforeTheNoiseAnalysis) {
    Open();
    const std::pair<const char*, Converter> twins[] = {{"Command3", Converter::Main},
                                                       {"Command10", Converter::Aux}};
    for (const auto& [button, converter] : twins) {
        for (const std::size_t count : {0U, 9U, 10U, 5000U, 5001U}) {
            bench->Fill(converter, std::vector<double>(count, 32768));
            const bool fits = count == 10 || count == 5000;
            EXPECT_EQ(OpenedBy(*form, button).empty(), !fits) << count;
            EXPECT_EQ(
                bench->messages.Take(),
                fits ? ""
                     : "Plain: For Data Analysis the number of Codes read must be between 9 and "
                       "5000");
        }
        bench->Fill(converter, {});
    }
    bench->Fill(Converter::Main, std::vector<double>(10, -2147483648.0));
    bench->state.MainCodes[0] = 8388608;
    EXPECT_EQ(OpenedBy(*form, "Command3"), "");
    EXPECT_EQ(bench->messages.Take(), "Critical: Overflow") << "the form cannot open";
}

TEST_F(MainMenuFormTest, QuitsWhenTheAnswerIsYes) {
    Open();
    bench->messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
    EXPECT_EQ(ClickOn("Command8"), "Plain yes or no: Are you sure you want to quit");
    EXPECT_TRUE(bench->system.ended.empty());
    ClickOn("Command8");
    EXPECT_EQ(bench->system.ended, std::vector<int>{0});
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    form->close();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(bench->messages.Take(), "") << "closing asks nothing";
}

TEST_F(MainMenuFormTest, ChoosesThePrinterPort) {
    bench->state.PrinterPortEnabled = {true, true, false};
    Open();
    auto& menu = Find<QMenu>(*form, "MnuPrinter");
    EXPECT_EQ(menu.title(), QStringLiteral("&Printer Port"));
    QTest::keyClick(form.get(), Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    EXPECT_FALSE(Item("MnuPRN").isEnabled());
    Item("MnuPRN").setEnabled(true);
    const std::tuple<const char*, const char*, int> items[] = {
        {"MnuLPT2", "LPT2", 632}, {"MnuPRN", "PRN", 956}, {"MnuLPT1", "LPT1", 888}};
    for (const auto& [name, text, address] : items) {
        for (int times = 0; times < 2; ++times) {  // stays checked
            Item(name).trigger();
            EXPECT_EQ(Item(name).text(), QString::fromLatin1(text));
            EXPECT_EQ(bench->state.PortAddress, address);
            for (const char* item : {"MnuLPT1", "MnuLPT2", "MnuPRN"}) {
                EXPECT_EQ(Item(item).isChecked(), item == std::string(name)) << item;
            }
        }
    }
}

}  // namespace
}  // namespace vx3260::test
