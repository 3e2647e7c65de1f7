#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>

namespace vx3260::test {

/// A control of a form by its name. Fails the test where it is not there.
template <typename Control>
Control& Find(const QWidget& form, const char* name) {
    auto* control = form.findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr) {
        throw std::runtime_error(std::string("no control ") + name);
    }
    return *control;
}

/// Runs `open`, which blocks in a modal window, hands that window to `inspect` and closes it.
/// False when no window came up; a window that stays open anyway is closed by a watchdog.
inline bool WhileModal(const std::function<void()>& open,
                       const std::function<void(QDialog&)>& inspect) {
    bool inspected = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (window == nullptr) {
            return;
        }
        inspected = true;
        inspect(*window);
        window->close();
    });
    QTimer watchdog;
    QObject::connect(&watchdog, &QTimer::timeout, [] {
        ADD_FAILURE() << "a modal window stayed open";
        if (QWidget* window = QApplication::activeModalWidget()) {
            window->close();
        }
    });
    watchdog.start(std::chrono::seconds(20));
    open();
    return inspected;
}

}  // namespace vx3260::test
