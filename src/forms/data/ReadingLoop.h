// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QObject>
#include <QWidget>
#include <cstdint>
#include <functional>

#include "acquisition/Reading.h"

namespace vx3260 {

/// A form's reading loop: it prompts for a key, any key but a lone modifier stops it, and so does
/// the Stop button, visible only while a loop runs; between two reads the interface stays alive.
/// Everything runs on the one user-interface thread.
class ReadingLoop final : public QObject {
    Q_OBJECT

  public:
    /// `prompt` shows the prompt while a loop runs; `stop` is visible and `keyTarget` has the focus
    /// then.
    ReadingLoop(QLabel* prompt, QAbstractButton* stop, QWidget* keyTarget, QObject* parent);

    bool Running() const { return running_; }

    /// Asks the loop to end after the read that is going on.
    void Stop();

    /// Runs `read` as the loop. It is given hooks for the reading.
    ReadingEnd Run(const std::function<ReadingEnd(const ReadingHooks&)>& read);

    /// Lets `milliseconds` of real time pass, or less when the loop is stopped. None below 1.
    void Wait(std::int32_t milliseconds);

  signals:
    /// Between two reads.
    void NextRead();
    void StopRequested();

  private:
    void BetweenReads();

    QLabel* prompt_;
    QAbstractButton* stop_;
    QWidget* keyTarget_;
    bool running_ = false;
    bool stopRequested_ = false;
};

}  // namespace vx3260
