// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/AnyKeyFilter.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

namespace vx3260 {
namespace {

bool IsLoneModifier(int key) {
    constexpr std::array modifiers{
        Qt::Key_Shift,   Qt::Key_Control, Qt::Key_Alt,      Qt::Key_AltGr,   Qt::Key_Meta,
        Qt::Key_Super_L, Qt::Key_Super_R, Qt::Key_CapsLock, Qt::Key_NumLock, Qt::Key_ScrollLock};
    return std::find(modifiers.begin(), modifiers.end(), key) != modifiers.end();
}

}  // namespace

AnyKeyFilter::AnyKeyFilter(std::function<void()> pressed) : pressed_(std::move(pressed)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool AnyKeyFilter::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) {
        return false;
    }
    if (IsLoneModifier(static_cast<const QKeyEvent*>(event)->key())) {
        return false;
    }
    // An accepted override keeps the key from being looked up as a shortcut; the press follows.
    event->accept();
    // The key that started it all may still be held down.
    const bool repeated = static_cast<const QKeyEvent*>(event)->isAutoRepeat();
    if (event->type() == QEvent::KeyPress && !repeated) {
        pressed_();
    }
    return true;
}

}  // namespace vx3260

#include "moc_AnyKeyFilter.cpp"
