// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace vx3260 {

/// SIGINT, SIGTERM and SIGHUP as something to read, for a program with an event loop. While one
/// exists they do not end the process; the first Release lets them do so again. A signal that the
/// process was started to ignore, as by nohup, stays ignored. To be made before any other thread,
/// which would take the signals. On Windows, which has none of them, it does nothing.
class EndSignals {
  public:
    EndSignals();
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals(EndSignals&&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    EndSignals& operator=(EndSignals&&) = delete;

    /// A file descriptor that becomes readable with the first signal; -1 where there is none.
    int Descriptor() const { return descriptor_; }

    /// Takes the signals that have arrived. Those to come have their usual effect.
    void Release();

  private:
    int descriptor_ = -1;
};

}  // namespace vx3260
