// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/data/ReadingLoop.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QScopeGuard>
#include <QTimer>

#include "ui/AnyKeyFilter.h"

namespace vx3260 {

ReadingLoop::ReadingLoop(QLabel* prompt, QAbstractButton* stop, QWidget* keyTarget, QObject* parent)
    : QObject(parent), prompt_(prompt), stop_(stop), keyTarget_(keyTarget) {
    // Nothing moves when the button comes and goes.
    QSizePolicy policy = stop->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    stop->setSizePolicy(policy);
    stop->hide();
    connect(stop, &QAbstractButton::clicked, this, &ReadingLoop::Stop);
}

void ReadingLoop::Stop() {
    if (!running_) {
        return;
    }
    stopRequested_ = true;
    prompt_->clear();
    stop_->hide();
    emit StopRequested();
}

ReadingEnd ReadingLoop::Run(const std::function<ReadingEnd(const ReadingHooks&)>& read) {
    const QPointer<QWidget> focusBefore = QApplication::focusWidget();
    running_ = true;
    stopRequested_ = false;
    prompt_->setText(tr("Press any key to stop reading"));
    stop_->show();
    const auto ended = qScopeGuard([this, &focusBefore] {
        running_ = false;
        prompt_->clear();
        stop_->hide();
        if (focusBefore) {
            focusBefore->setFocus();
        }
    });
    const AnyKeyFilter anyKey([this] { Stop(); });
    return read({.beforeEach = [this] { BetweenReads(); },
                 .stopRequested = [this] { return stopRequested_; }});
}

void ReadingLoop::BetweenReads() {
    keyTarget_->setFocus();
    QCoreApplication::processEvents();
    emit NextRead();
}

void ReadingLoop::Wait(std::int32_t milliseconds) {
    if (milliseconds < 1 || stopRequested_) {
        return;
    }
    QEventLoop waiting;
    connect(this, &ReadingLoop::StopRequested, &waiting, &QEventLoop::quit);
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &waiting, &QEventLoop::quit);
    waiting.exec();
}

}  // namespace vx3260

#include "moc_ReadingLoop.cpp"
