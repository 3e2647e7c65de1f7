#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>
#include <initializer_list>
#include <stdexcept>
#include <string>

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

/// A control and the text it must show: a caption, a frame's title or a value.
struct NamedText {
    const char* name;
    const char* text;
};

/// Expects every control to be there and to show its text.
inline void ExpectTexts(const QWidget& form, std::initializer_list<NamedText> texts) {
    for (const NamedText& expected : texts) {
        const auto& control = Find<QWidget>(form, expected.name);
        const char* const property = control.property("title").isValid() ? "title" : "text";
        EXPECT_EQ(control.property(property).toString(), QString::fromUtf8(expected.text))
            << expected.name;
    }
}

/// Runs `open`, which blocks in a modal window, hands that window to `inspect` and closes it.
/// False when no window came up; a window that stays open anyway is closed by a watchdog.
inline bool WhileModal(const std::function<void()>& open,
                       const std::function<void(QDialog&)>& inspect) {
    bool inspected = false;
    QTimer once;  // gone with this call, also where no window's event loop ran
    once.setSingleShot(true);
    QObject::connect(&once, &QTimer::timeout, [&] {
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
    once.start(0);
    watchdog.start(std::chrono::seconds(20));
    open();
    return inspected;
}

}  // namespace vx3260::test
