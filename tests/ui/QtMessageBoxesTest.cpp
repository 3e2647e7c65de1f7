#include "ui/QtMessageBoxes.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <sstream>

#include "support/Forms.h"

namespace vx3260 {
namespace {

using namespace test;

TEST(QtMessageBoxes, ShowsTextIconTitleAndDetail) {
    std::ostringstream log;
    QtMessageBoxes boxes(log);
    const Message message{.text = "Windows Version:Failed\rPort\r\nAddress",
                          .icon = MessageIcon::Information,
                          .title = "Show Status",
                          .detail = "more"};
    EXPECT_TRUE(WhileModal([&] { EXPECT_EQ(boxes.Show(message), MessageAnswer::Ok); },
                           [](QDialog& dialog) {
                               auto& box = dynamic_cast<QMessageBox&>(dialog);
                               EXPECT_EQ(box.text(),
                                         QStringLiteral("Windows Version:Failed\nPort\nAddress"));
                               EXPECT_EQ(box.windowTitle(), QStringLiteral("Show Status"));
                               EXPECT_EQ(box.icon(), QMessageBox::Information);
                               EXPECT_EQ(box.informativeText(), QStringLiteral("more"));
                           }));
    EXPECT_EQ(log.str(), "Windows Version:Failed\rPort\r\nAddress\nmore\n");
}

TEST(QtMessageBoxes, AnswersAQuestion) {
    std::ostringstream log;
    QtMessageBoxes boxes(log);
    const Message question{.text = "?", .buttons = MessageButtons::YesNo};
    for (const auto button : {QMessageBox::Yes, QMessageBox::No}) {
        MessageAnswer answer{};
        WhileModal([&] { answer = boxes.Show(question); },
                   [&](QDialog& box) { dynamic_cast<QMessageBox&>(box).button(button)->click(); });
        EXPECT_EQ(answer, button == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No);
    }
    const Message warning{
        .text = "?", .icon = MessageIcon::Exclamation, .buttons = MessageButtons::YesNo};
    WhileModal([&] { EXPECT_EQ(boxes.Show(warning), MessageAnswer::No); },
               [](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
    MessageAnswer closed{};
    WhileModal([&] { closed = boxes.Show(question); }, [](QDialog&) {});
    EXPECT_EQ(closed, MessageAnswer::No);
    EXPECT_EQ(log.str(), "");
}

}  // namespace
}  // namespace vx3260
