// SPDX-License-Identifier: GPL-3.0-or-later
#include "Watchdog.h"

#include <csignal>
#include <iostream>

namespace vx3260::monkey {

Watchdog::Watchdog(std::chrono::seconds limit)
    : watched_(pthread_self()), thread_([this, limit] { Watch(limit); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    condition_.notify_one();
    thread_.join();
}

void Watchdog::Watch(std::chrono::seconds limit) {
    std::unique_lock lock(mutex_);
    unsigned before = meals_;
    while (!condition_.wait_for(lock, limit, [this] { return ended_; })) {
        if (before == meals_) {
            std::cerr << "Found: no event was handled for " << limit.count() << " s" << std::endl;
            pthread_kill(watched_, SIGABRT);
            return;
        }
        before = meals_;
    }
}

}  // namespace vx3260::monkey
