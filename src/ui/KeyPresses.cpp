// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/KeyPresses.h"

#include <QEvent>
#include <algorithm>
#include <utility>

namespace vx3260 {
namespace {

class EventFilter final : public QObject {
  public:
    EventFilter(QObject* watched, std::function<bool(const QEvent&)> handle)
        : QObject(watched), handle_(std::move(handle)) {
        watched->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override { return handle_(*event); }

  private:
    std::function<bool(const QEvent&)> handle_;
};

/// How far an arrow key moves the focus; 0 for another key.
int StepOf(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Up:
        case Qt::Key_Left:
            return -1;
        case Qt::Key_Down:
        case Qt::Key_Right:
            return 1;
        default:
            return 0;
    }
}

/// The focus stays where it is at either end.
void MoveFocus(const std::vector<QAbstractButton*>& options, const QAbstractButton* from,
               int step) {
    const auto count = static_cast<int>(options.size());
    const auto start = std::find(options.begin(), options.end(), from) - options.begin();
    for (int i = static_cast<int>(start) + step; i >= 0 && i < count; i += step) {
        QAbstractButton* const option = options[static_cast<std::size_t>(i)];
        if (option->isVisible() && option->isEnabled()) {
            option->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

/// Qt makes the option with the focus the one that Tab enters; this undoes it.
void EnterAtSelected(const std::vector<QAbstractButton*>& options) {
    const bool anySelected = std::any_of(options.begin(), options.end(),
                                         [](const auto* option) { return option->isChecked(); });
    for (QAbstractButton* const option : options) {
        const bool entered = option->isChecked() || !anySelected;
        option->setFocusPolicy(entered ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

}  // namespace

bool IsEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

void OnKeyPress(QWidget* widget, std::function<bool(const QKeyEvent&)> handle) {
    new EventFilter(widget, [handle = std::move(handle)](const QEvent& event) {
        return event.type() == QEvent::KeyPress && handle(static_cast<const QKeyEvent&>(event));
    });
}

void ClickOnEnter(QAbstractButton* button) {
    OnKeyPress(button, [button](const QKeyEvent& key) {
        if (!IsEnter(key)) {
            return false;
        }
        // A form that the click opens must not be closed again by the key still held down.
        if (!key.isAutoRepeat()) {
            button->click();
        }
        return true;
    });
}

void MoveFocusByArrows(const std::vector<QAbstractButton*>& options) {
    for (QAbstractButton* const option : options) {
        OnKeyPress(option, [options, option](const QKeyEvent& key) {
            const int step = StepOf(key);
            if (step != 0) {
                MoveFocus(options, option, step);
            }
            return step != 0;
        });
        // While the form is destroyed, the focus leaves options when others are gone already.
        const QWidget* const widget = option;
        new EventFilter(option, [options, widget](const QEvent& event) {
            if (event.type() == QEvent::FocusOut && widget->isVisible()) {
                EnterAtSelected(options);
            }
            return false;
        });
        QObject::connect(option, &QAbstractButton::toggled, option,
                         [options] { EnterAtSelected(options); });
    }
    EnterAtSelected(options);
}

void SelectTextOnFocus(QLineEdit* edit) {
    new EventFilter(
        edit, [edit, clickedInto = false, hadFocus = false](const QEvent& event) mutable {
            if (event.type() == QEvent::FocusIn) {
                const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
                clickedInto = reason == Qt::MouseFocusReason;
                // A window that becomes active again leaves the selection as it was.
                if (!std::exchange(hadFocus, true) || reason == Qt::OtherFocusReason) {
                    edit->selectAll();
                }
            } else if (event.type() == QEvent::MouseButtonRelease &&
                       std::exchange(clickedInto, false) && !edit->hasSelectedText()) {
                edit->selectAll();
            }
            return false;
        });
}

}  // namespace vx3260
