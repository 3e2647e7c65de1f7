// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "support/SimulatedBench.h"
#include "ui/Form.h"

namespace vx3260::test {

/// A control of a form by its name. Fails the test if there is none.
template <typename Control = QWidget>
Control& Find(const QWidget& form, const std::string& name) {
    auto* control = form.findChild<Control*>(QString::fromStdString(name));
    if (control == nullptr) {
        throw std::runtime_error("no control " + name);
    }
    return *control;
}

inline void Click(const QWidget& form, const std::string& button) {
    Find<QAbstractButton>(form, button).click();
}

inline bool Checked(const QWidget& form, const std::string& option) {
    return Find<QAbstractButton>(form, option).isChecked();
}

/// What a control shows: a caption, a frame's title or a value.
inline std::string TextOf(const QWidget& control) {
    const QVariant text = control.property("text");
    return (text.isValid() ? text : control.property("title")).toString().toStdString();
}

inline std::string TextOf(const QWidget& form, const std::string& name) {
    return TextOf(Find(form, name));
}

/// Expects controls to be there and to show the texts of a list: "name: text | name: text".
inline void ExpectTexts(const QWidget& form, const std::string& list) {
    QStringList shown;
    for (const QString& entry : QString::fromStdString(list).split(QStringLiteral(" | "))) {
        const QString name = entry.section(QLatin1Char(':'), 0, 0);
        const QString text = QString::fromStdString(TextOf(form, name.toStdString()));
        shown.append(name + QLatin1Char(':') + (text.isEmpty() ? text : QLatin1Char(' ') + text));
    }
    EXPECT_EQ(shown.join(QStringLiteral(" | ")).toStdString(), list);
}

/// The texts of a row of bit labels, from the most significant down.
inline std::string BitsOf(const QWidget& form, int first, int last) {
    std::string bits;
    const int step = first < last ? 1 : -1;
    for (int n = first; n != last + step; n += step) {
        bits += TextOf(form, "Label" + std::to_string(n));
    }
    return bits;
}

inline void ShowActive(QWidget& form) {
    form.show();
    form.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
}

/// Runs `open`, which opens a window, hands that to `inspect` and closes it; `open` may block as
/// long as the window is there. False when no window came up; a modal one that stays open anyway is
/// closed by a watchdog.
inline bool WhileModal(const std::function<void()>& open,
                       const std::function<void(QDialog&)>& inspect) {
    bool inspected = false;
    QTimer once;  // stops with this call, also if no window's event loop ran
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
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const window = qobject_cast<QDialog*>(widget);
        if (!inspected && window != nullptr && window->isVisible() && !window->isModal() &&
            window->parentWidget() != nullptr) {
            inspected = true;
            inspect(*window);
            window->close();
        }
    }
    return inspected;
}

/// The form that a button opens, by its name and what it does, such as "ModeForm: Program Mode
/// Register"; empty when it opens none.
inline std::string OpenedBy(const QWidget& form, const std::string& button) {
    QString name;
    WhileModal([&] { Click(form, button); },
               [&](QDialog& opened) {
                   name = opened.objectName() + QStringLiteral(": ") +
                          opened.windowTitle().section(QStringLiteral(" - "), -1);
               });
    return name.toStdString();
}

/// A form on a simulated bench.
class FormTest : public testing::Test {
  protected:
    void UseBoardWith(const std::string& fault) {
        form.reset();
        bench = std::make_unique<SimulatedBench>(fault);
    }
    void Preset(unsigned address, std::uint32_t value) { bench->Chip().Preset(address, value); }
    std::uint32_t Contents(unsigned address) { return bench->Chip().Contents(address); }

    template <typename Opened, typename... More>
    Opened& Open(const More&... more) {
        form.reset();
        form = std::make_unique<Opened>(*bench->services, more...);
        ShowActive(*form);
        return static_cast<Opened&>(*form);
    }
    QLineEdit& Box(const char* name) { return Find<QLineEdit>(*form, name); }
    void Expect(const std::string& texts) { ExpectTexts(*form, texts); }

    /// Returns the message boxes that it shows.
    std::string ClickOn(const std::string& button) {
        Click(*form, button);
        return bench->messages.Take();
    }
    std::string Enter(const char* box, const std::string& text) {
        Box(box).setText(QString::fromStdString(text));
        QTest::keyClick(&Box(box), Qt::Key_Return);
        return bench->messages.Take();
    }

    std::unique_ptr<SimulatedBench> bench = std::make_unique<SimulatedBench>();
    std::unique_ptr<Form> form;
};

}  // namespace vx3260::test
