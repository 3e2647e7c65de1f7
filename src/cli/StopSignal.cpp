// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/StopSignal.h"

#include <csignal>

namespace vx3260 {
namespace {

// A signal handler gets nothing handed and can reach no object.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
volatile std::sig_atomic_t stopRequested = 0;

extern "C" void RequestStop(int signal) {
    stopRequested = 1;
    std::signal(signal, SIG_DFL);
}

}  // namespace

StopSignal::StopSignal() {
    stopRequested = 0;
    previous_ = std::signal(SIGINT, RequestStop);
    if (previous_ == SIG_IGN) {
        std::signal(SIGINT, SIG_IGN);
    }
}

StopSignal::~StopSignal() {
    std::signal(SIGINT, previous_);
}

bool StopSignal::Requested() const {
    return stopRequested != 0;
}

}  // namespace vx3260
