// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace vx3260 {

/// What SIGHUP, the signal of a closed terminal, requests.
enum class HangUp { Stop, NewFile };

/// While an object exists, SIGINT (Ctrl+C), SIGTERM and SIGHUP request a stop instead of ending the
/// process, or SIGHUP a new file; a second SIGINT or SIGTERM ends it. Signals ignored at process
/// start (nohup) stay ignored. One object at a time.
class StopSignal {
  public:
    explicit StopSignal(HangUp hangUp = HangUp::Stop);
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal(StopSignal&&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;
    StopSignal& operator=(StopSignal&&) = delete;

    bool Requested() const;

    /// Whether SIGHUP has requested a new file since the last call.
    bool NewFileRequested();

    /// How many signals there are; Windows has no SIGHUP.
#if defined(_WIN32)
    static constexpr std::size_t Count = 2;
#else
    static constexpr std::size_t Count = 3;
#endif

  private:
    std::array<void (*)(int), Count> previous_{};
};

}  // namespace vx3260
