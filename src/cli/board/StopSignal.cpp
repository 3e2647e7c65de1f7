// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/StopSignal.h"

#include <algorithm>
#include <csignal>

namespace vx3260 {
namespace {

#if defined(_WIN32)
constexpr std::array<int, StopSignal::Count> stopSignals{SIGINT, SIGTERM};
#else
constexpr std::array<int, StopSignal::Count> stopSignals{SIGINT, SIGTERM, SIGHUP};
#endif

// A signal handler has no argument through which it could reach an object.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
volatile std::sig_atomic_t stopRequested = 0;
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
volatile std::sig_atomic_t newFileRequested = 0;

/// A terminal that closes may send SIGHUP twice, so a second one must not end the process.
extern "C" void RequestStop(int signal) {
    const bool mayRepeat = signal != SIGINT && signal != SIGTERM;
    stopRequested = 1;
    std::signal(signal, mayRepeat ? RequestStop : SIG_DFL);
}

extern "C" void RequestNewFile(int signal) {
    newFileRequested = 1;
    std::signal(signal, RequestNewFile);
}

void (*HandlerOf(int signal, HangUp hangUp))(int) {
    const bool mayHangUp = signal != SIGINT && signal != SIGTERM;
    return mayHangUp && hangUp == HangUp::NewFile ? RequestNewFile : RequestStop;
}

}  // namespace

StopSignal::StopSignal(HangUp hangUp) {
    stopRequested = 0;
    newFileRequested = 0;
    std::transform(stopSignals.begin(), stopSignals.end(), previous_.begin(), [&](int signal) {
        void (*const previous)(int) = std::signal(signal, HandlerOf(signal, hangUp));
        if (previous == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
        return previous;
    });
}

StopSignal::~StopSignal() {
    for (std::size_t i = 0; i < Count; ++i) {
        std::signal(stopSignals[i], previous_[i]);
    }
}

bool StopSignal::Requested() const {
    return stopRequested != 0;
}

bool StopSignal::NewFileRequested() {
    const bool requested = newFileRequested != 0;
    newFileRequested = 0;
    return requested;
}

}  // namespace vx3260
