// SPDX-License-Identifier: GPL-3.0-or-later
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

void Form::ShowBoardLabel(QLabel* label) {
    label->setText(QString::fromStdString(services_.boardLabel));
    label->setVisible(!services_.boardLabel.empty());
    label->setToolTip(tr("Readings come from the simulated board, not from a chip"));
    boardLabel_ = label;
    ColourBoardLabel();
}

/// Colours that a style sheet takes from the palette stay when the palette changes.
void Form::ColourBoardLabel() {
    const QPalette colours = palette();
    boardLabel_->setStyleSheet(QStringLiteral("QLabel { border: 1px solid %1; color: %2;"
                                              " border-radius: 4px; padding: 2px 8px; }")
                                   .arg(colours.color(QPalette::Highlight).name(),
                                        colours.color(QPalette::WindowText).name()));
}

void Form::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && boardLabel_ != nullptr) {
        ColourBoardLabel();
    }
}

void Form::ShowFailure(const std::exception& error, const std::string& detail) {
    std::string text = error.what();
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') {
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    }
    ShowMessage({.text = text, .icon = MessageIcon::Exclamation, .detail = detail});
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
    // A form larger than its screen is made to fit where it can be, and keeps its title bar on it.
    const QRect onScreen = screen()->geometry();
    const QSize frame = frameGeometry().size() - size();
    resize(size().boundedTo(screen()->availableGeometry().size() - frame));
    const QSize whole = size() + frame;
    move(onScreen.left() + std::max(0, (onScreen.width() - whole.width()) / 2),
         onScreen.top() + std::max(0, (onScreen.height() - whole.height()) / 2));
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
        ShowMessage({.text = error.what(), .icon = MessageIcon::Critical});
    }
}

}  // namespace vx3260

#include "moc_Form.cpp"
