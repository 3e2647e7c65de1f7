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

/// A terminal that closes may send SIGHUP twice, so a second one must not end the process.
extern "C" void RequestStop(int signal) {
    const bool mayRepeat = signal != SIGINT && signal != SIGTERM;
    stopRequested = 1;
    std::signal(signal, mayRepeat ? RequestStop : SIG_DFL);
}

}  // namespace

StopSignal::StopSignal() {
    stopRequested = 0;
    std::transform(stopSignals.begin(), stopSignals.end(), previous_.begin(), [](int signal) {
        void (*const previous)(int) = std::signal(signal, RequestStop);
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

}  // namespace vx3260
