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
    QStringList order;
    const QWidget* const first = &Find(*form, "Command1");
    const QWidget* at = first;
    do {
        if (qobject_cast<const QPushButton*>(at) != nullptr) {
            order.append(at->objectName().mid(7));
        }
        at = at->nextInFocusChain();
    } while (at != first);
    EXPECT_EQ(order.join(' ').toStdString(), "1 2 3 4 5 6 7 8 9 10 11");
}

const std::string conversionQuestion =
    "Plain yes or no: This function requires that the VX3260,\r\nbe placed in Continuous "
    "Conversion Mode,\r\n\r\nDo you wish to Place the VX3260\r\nin Continuous Conversion Mode ?";

TEST_F(MainMenuFormTest, AsksBeforeItPutsTheChipInContinuousConversion) {
    Open();
    const std::tuple<const char*, std::uint32_t, std::uint32_t> cases[] = {
        {"Command2", 0x01, 0x03}, {"Command9", 0x10, 0x13}, {"Command11", 0x14, 0x17}};
    for (const auto& [button, before, after] : cases) {
        Preset(modeAt, before);
        bench->messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
        EXPECT_EQ(OpenedBy(*form, button), "");
        EXPECT_EQ(Contents(modeAt), before);
        EXPECT_NE(OpenedBy(*form, button), "");
        EXPECT_EQ(Contents(modeAt), after);
        EXPECT_EQ(bench->messages.Take(), conversionQuestion + "\n" + conversionQuestion);
    }
}

TEST_F(MainMenuFormTest, ChecksTheCountBeforeTheNoiseAnalysis) {
    Open();
    const std::string refusal =
        "Plain: For Data Analysis the number of Codes read must be between 9 and 5000";
    for (const Converter converter : {Converter::Main, Converter::Aux}) {
        const std::string button = converter == Converter::Main ? "Command3" : "Command10";
        for (const std::size_t count : {0U, 9U, 10U, 5000U, 5001U}) {
            bench->Fill(converter, std::vector<double>(count, 32768));
            const bool fits = count == 10 || count == 5000;
            EXPECT_EQ(OpenedBy(*form, button).empty(), !fits) << count;
            EXPECT_EQ(bench->messages.Take(), fits ? "" : refusal);
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
