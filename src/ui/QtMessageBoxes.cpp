// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/QtMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>
#include <algorithm>
#include <ostream>

namespace vx3260 {
namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

/// The window to lie over. None is active while another program has the focus; the box must not
/// end up behind a form that waits for it.
QWidget* WindowBelow() {
    if (QWidget* const active = QApplication::activeWindow()) {
        return active;
    }
    if (QWidget* const modal = QApplication::activeModalWidget()) {
        return modal;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto visible = std::find_if(windows.begin(), windows.end(),
                                      [](const QWidget* window) { return window->isVisible(); });
    return visible == windows.end() ? nullptr : *visible;
}

/// A text's lines end in CR LF or in CR alone; the box breaks lines at LF only.
QString WithLineFeeds(const std::string& text) {
    QString lines = QString::fromStdString(text);
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return lines;
}

}  // namespace

MessageAnswer QtMessageBoxes::Show(const Message& message) {
    if (!message.detail.empty()) {
        log_ << message.text << '\n' << message.detail << std::endl;
    }
    const bool question = message.buttons == MessageButtons::YesNo;
    QMessageBox box(WindowBelow());
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(QString::fromStdString(message.title));
    box.setText(WithLineFeeds(message.text));
    box.setInformativeText(WithLineFeeds(message.detail));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setIcon(IconOf(message.icon));
    box.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No
                                    : QMessageBox::StandardButtons(QMessageBox::Ok));
    if (question && message.icon == MessageIcon::Exclamation) {
        box.setDefaultButton(QMessageBox::No);
    }
    const int pressed = box.exec();
    if (!question) {
        return MessageAnswer::Ok;
    }
    return pressed == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

}  // namespace vx3260
