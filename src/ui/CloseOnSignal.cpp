// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/CloseOnSignal.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>
#include <utility>

namespace vx3260 {
namespace {

/// A reading ends after the read that is going on, and may then show how it ended.
constexpr int millisecondsBetweenAttempts = 20;

}  // namespace

CloseOnSignal::CloseOnSignal(int descriptor, std::function<void()> accept)
    : accept_(std::move(accept)) {
    if (descriptor < 0) {
        return;
    }
    auto* const notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Begin();
    });
}

void CloseOnSignal::Begin() {
    accept_();
    auto* const timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &CloseOnSignal::CloseWindowInFront);
    timer->start(millisecondsBetweenAttempts);
}

/// All windows but menus are modal.
void CloseOnSignal::CloseWindowInFront() {
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const inFront = popup != nullptr ? popup : QApplication::activeModalWidget();
    if (inFront != nullptr) {
        inFront->close();
    }
}

}  // namespace vx3260

#include "moc_CloseOnSignal.cpp"
