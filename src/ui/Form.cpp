// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Form.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <exception>
#include <utility>

#include "app/BoardState.h"
#include "numbers/NumberText.h"
#include "ui/EntryError.h"
#include "ui/HelpForm.h"
#include "ui/KeyPresses.h"

namespace vx3260 {

Form::Form(Services& services, QWidget* parent) : QDialog(parent), services_(services) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void Form::ShowBoardLabel(QLabel* label) {
    boardLabel_ = label;
    UpdateBoardLabel();
}

/// Colours that a style sheet takes from the palette stay when the palette changes.
void Form::UpdateBoardLabel() {
    if (boardLabel_ == nullptr) {
        return;
    }
    const BoardState board = BoardStateOf(services_);
    boardLabel_->setText(QString::fromStdString(board.text));
    boardLabel_->setToolTip(QString::fromStdString(board.meaning));
    const QPalette colours = palette();
    const QString style = QStringLiteral(
                              "QLabel { border: %1 solid %2; color: %3; border-radius: 4px;"
                              " padding: 2px 8px; font-weight: %4; }")
                              .arg(board.good ? QStringLiteral("1px") : QStringLiteral("2px"),
                                   colours.color(QPalette::Highlight).name(),
                                   colours.color(QPalette::WindowText).name(),
                                   board.good ? QStringLiteral("normal") : QStringLiteral("bold"));
    if (boardLabel_->styleSheet() != style) {
        boardLabel_->setStyleSheet(style);
    }
}

void Form::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        UpdateBoardLabel();
    }
}

void Form::ShowFailure(const std::exception& error, const std::string& detail) {
    std::string text = error.what();
    if (!text.empty()) {
        text.front() = UpperCase(text.front());
    }
    ShowMessage({.text = text, .icon = MessageIcon::Exclamation, .detail = detail});
}

/// An open help window stays usable.
void Form::setVisible(bool visible) {
    HelpForm::GiveTo(visible ? this : parentWidget(), this);
    QDialog::setVisible(visible);
}

void Form::OpenHelp() {
    HelpForm::Open(this, objectName());
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) {
        OpenHelp();
    } else {
        QDialog::keyPressEvent(event);
    }
}

void Form::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) {
        return;
    }
    PrepareButtons();
    UpdateBoardLabel();
    frameChecks_ = 0;
    FitToScreen(windowHandle()->frameMargins());
}

void Form::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    if (frameChecks_ == 0) {
        FollowFrame();
    }
}

/// The window's frame is known only some time after the window is on the screen, and the window
/// manager may place the window once more. Without a window manager, windows have no frame.
void Form::FollowFrame() {
    constexpr int maxFrameChecks = 20;
    constexpr int millisecondsBetweenChecks = 10;
    const QMargins frame = windowHandle()->frameMargins();
    if (!frame.isNull()) {
        FitToScreen(frame);
    }
    if (++frameChecks_ < maxFrameChecks) {
        QTimer::singleShot(millisecondsBetweenChecks, this, &Form::FollowFrame);
    }
}

MessageAnswer Form::ShowMessage(const Message& message) {
    UpdateBoardLabel();
    return services_.messages.Show(message);
}

void Form::PrepareButtons() {
    if (std::exchange(prepared_, true)) {
        return;
    }
    for (QPushButton* const button : findChildren<QPushButton*>()) {
        button->setAutoDefault(false);
        button->setDefault(false);
        ClickOnEnter(button);
    }
}

void Form::FitToScreen(const QMargins& frame) {
    if (isMaximized()) {
        return;
    }
    const QSize space = screen()->availableGeometry().marginsRemoved(frame).size();
    MakeScrollableBeyond(space);
    GrowToTexts();
    resize(size().boundedTo(space));
    CentreOnScreen(frame);
}

void Form::MakeScrollableBeyond(const QSize& space) {
    const QSize needed =
        minimumSizeHint().expandedTo(minimumSize()).expandedTo({0, HeightOfTexts()});
    if (needed.width() > space.width() || needed.height() > space.height()) {
        MakeScrollable();
    }
}

/// The height that comes with the part goes with it. The form's upper end stays where it is, unless
/// the lower one would leave the screen.
void Form::ShowPart(QWidget* part, bool shown) {
    const int before = height();
    const int present = part->height() + layout()->spacing();
    part->setVisible(shown);
    if (isMaximized() || windowHandle() == nullptr) {
        return;
    }
    const QMargins frame = windowHandle()->frameMargins();
    const QRect space = screen()->availableGeometry().marginsRemoved(frame);
    layout()->activate();
    MakeScrollableBeyond(space.size());
    const int with = shown ? part->sizeHint().height() + layout()->spacing() : -present;
    resize(width(), std::min(before + with, space.height()));
    const int surplus = geometry().bottom() - space.bottom();
    if (surplus > 0) {
        move(x(), y() - surplus);
    }
}

void Form::GrowToTexts() {
    if (isMaximized() || windowHandle() == nullptr) {
        return;
    }
    const QMargins frame = windowHandle()->frameMargins();
    const int space = screen()->availableGeometry().marginsRemoved(frame).height();
    resize(width(), std::max(height(), std::min(HeightOfTexts(), space)));
}

/// Qt opens a window with two thirds of the screen's height at most, whatever its wrapped texts
/// need.
int Form::HeightOfTexts() const {
    return layout() != nullptr && layout()->hasHeightForWidth()
               ? layout()->totalHeightForWidth(width())
               : 0;
}

/// The title bar stays on the screen.
void Form::CentreOnScreen(const QMargins& frame) {
    const QRect onScreen = screen()->geometry();
    const QSize framed = size().grownBy(frame);
    const int freeWidth = std::max(0, (onScreen.width() - framed.width()) / 2);
    const int freeHeight = std::max(0, (onScreen.height() - framed.height()) / 2);
    constexpr int gapAtEdge = 8;
    const int aside = qRound(side_ * std::clamp(freeWidth - gapAtEdge, 0, framed.width() / 2));
    move(onScreen.left() + freeWidth + aside, onScreen.top() + freeHeight);
}

/// Moves everything into a scroll area.
void Form::MakeScrollable() {
    if (std::exchange(scrollable_, true)) {
        return;
    }
    QWidget* const focused = focusWidget();
    auto* const area = new QScrollArea(this);
    area->setObjectName(QStringLiteral("ScrollArea"));
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    auto* const content = new QWidget(area);
    content->setLayout(layout());
    area->setWidget(content);
    auto* const outerLayout = new QVBoxLayout(this);
    outerLayout->setContentsMargins({});
    outerLayout->addWidget(area);
    area->show();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QSize needed =
        content->minimumSizeHint().expandedTo({0, content->heightForWidth(width())});
    resize(needed + QSize(2 * bar, 2 * bar));
    if (focused != nullptr) {
        focused->setFocus();
    }
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
    } catch (const EntryError& error) {
        ShowMessage(
            {.text = error.what(), .icon = MessageIcon::Critical, .detail = error.Advice()});
        error.Edit()->setFocus();
        error.Edit()->selectAll();
    } catch (const std::exception& error) {
        ShowMessage({.text = error.what(), .icon = MessageIcon::Critical});
    }
    UpdateBoardLabel();
}

}  // namespace vx3260

#include "moc_Form.cpp"
