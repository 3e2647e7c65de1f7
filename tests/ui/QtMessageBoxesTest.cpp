// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/QtMessageBoxes.h"

#include <QMessageBox>
#include <QPushButton>
#include <sstream>

#include "support/Forms.h"

namespace vx3260::test {
namespace {

TEST(QtMessageBoxes, ShowsTextIconTitleAndDetail) {
    std::ostringstream log;
    QtMessageBoxes boxes(log);
    const Message message{.text = "Windows Version:Failed\rPort\r\nAddress",
                          .icon = MessageIcon::Information,
                          .title = "Show Status",
                          .detail = "more"};
    const auto inspect = [](QDialog& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.text(), QStringLiteral("Windows Version:Failed\nPort\nAddress"));
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Show Status"));
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.informativeText(), QStringLiteral("more"));
    };
    EXPECT_TRUE(WhileModal([&] { EXPECT_EQ(boxes.Show(message), MessageAnswer::Ok); }, inspect));
    EXPECT_EQ(log.str(), "Windows Version:Failed\rPort\r\nAddress\nmore\n");
}

TEST(QtMessageBoxes, AnswersAQuestion) {
    std::ostringstream log;
    QtMessageBoxes boxes(log);
    const auto answerTo = [&](MessageIcon icon, const std::function<void(QDialog&)>& act) {
        MessageAnswer answer{};
        const Message question{.text = "?", .icon = icon, .buttons = MessageButtons::YesNo};
        WhileModal([&] { answer = boxes.Show(question); }, act);
        return answer;
    };
    const auto click = [](QMessageBox::StandardButton button) {
        return [button](QDialog& box) { dynamic_cast<QMessageBox&>(box).button(button)->click(); };
    };
    const auto enter = [](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); };
    EXPECT_EQ(answerTo(MessageIcon::None, click(QMessageBox::Yes)), MessageAnswer::Yes);
    EXPECT_EQ(answerTo(MessageIcon::None, click(QMessageBox::No)), MessageAnswer::No);
    EXPECT_EQ(answerTo(MessageIcon::Exclamation, enter), MessageAnswer::No);
    EXPECT_EQ(answerTo(MessageIcon::None, [](QDialog&) {}), MessageAnswer::No) << "closed";
    EXPECT_EQ(log.str(), "");
}

}  // namespace
}  // namespace vx3260::test
