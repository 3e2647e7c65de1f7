// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

#include "platform/EndSignals.h"

namespace vx3260 {
namespace {

bool IsIgnored(int signal) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

/// Ignored signals are left out: while blocked they would be delivered here all the same.
sigset_t SignalsToTake() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (!IsIgnored(signal)) {
            sigaddset(&signals, signal);
        }
    }
    return signals;
}

}  // namespace

EndSignals::EndSignals() {
    const sigset_t signals = SignalsToTake();
    descriptor_ = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor_ >= 0) {
        pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    }
}

EndSignals::~EndSignals() {
    Release();
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void EndSignals::Release() {
    signalfd_siginfo arrived{};
    while (read(descriptor_, &arrived, sizeof arrived) > 0) {
    }
    const sigset_t signals = SignalsToTake();
    // A terminal that closes may send it twice.
    std::signal(SIGHUP, SIG_IGN);
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

}  // namespace vx3260
