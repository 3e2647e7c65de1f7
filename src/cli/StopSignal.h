// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace vx3260 {

/// While one exists, Ctrl+C (SIGINT) does not end the process but asks it to stop; a second one
/// ends it. A process started with SIGINT ignored goes on ignoring it. One at a time.
class StopSignal {
  public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal(StopSignal&&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;
    StopSignal& operator=(StopSignal&&) = delete;

    bool Requested() const;

  private:
    void (*previous_)(int);
};

}  // namespace vx3260
