// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace vx3260 {

/// SIGINT, SIGTERM and SIGHUP as a readable descriptor, for a program with an event loop. While an
/// object exists they do not end the process; after Release they do again. A signal that the
/// process was started to ignore, as by nohup, stays ignored. Create it before any other thread,
/// which would receive the signals. Does nothing on Windows, which lacks these signals.
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

    /// Discards the signals that have arrived. Later ones have their usual effect, except SIGHUP,
    /// which is ignored then.
    void Release();

  private:
    int descriptor_ = -1;
};

}  // namespace vx3260
