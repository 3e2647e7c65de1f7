// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

namespace vx3260 {

/// Closes the program's windows one after the other, from the one in front, as their close boxes
/// do, once a file descriptor can be read: a reading that runs is stopped first, a question is
/// answered with No, a window that opens later is closed too.
class CloseOnSignal final : public QObject {
    Q_OBJECT
  public:
    /// `accept` is called when the descriptor can be read for the first time. Does nothing for the
    /// descriptor -1.
    CloseOnSignal(int descriptor, std::function<void()> accept);

  private:
    void Begin();
    static void CloseWindowInFront();

    std::function<void()> accept_;
};

}  // namespace vx3260
