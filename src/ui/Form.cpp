#include "ui/Form.h"

#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <algorithm>
#include <exception>

namespace vx3260 {

Form::Form(Services& services, QWidget* parent) : QDialog(parent), services_(services) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void Form::ShowBadge(QLabel* label) {
    label->setText(QString::fromStdString(services_.boardBadge));
    label->setVisible(!services_.boardBadge.empty());
    label->setToolTip(tr("Readings come from the simulated board, not from a chip"));
    label->setStyleSheet(
        QStringLiteral("QLabel { border: 1px solid palette(highlight);"
                       " border-radius: 4px; padding: 2px 8px; }"));
}

void Form::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) {
        return;
    }
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
    // A form larger than its screen keeps its title bar on it.
    const QRect onScreen = screen()->geometry();
    move(onScreen.left() + std::max(0, (onScreen.width() - width()) / 2),
         onScreen.top() + std::max(0, (onScreen.height() - height()) / 2));
}

void Form::OnSelected(QAbstractButton* option, const std::function<void()>& handler) {
    connect(option, &QAbstractButton::toggled, this, [this, handler](bool selected) {
        if (selected) {
            Guarded(handler);
        }
    });
}

void Form::Guarded(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& error) {
        Show({.text = error.what(), .icon = MessageIcon::Critical});
    }
}

}  // namespace vx3260
