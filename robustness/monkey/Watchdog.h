// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pthread.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace vx3260::monkey {

/// Aborts the program when the thread that made it lets `limit` pass without feeding: the abort
/// happens on that thread, so that a sanitizer or a debugger shows where it hangs.
class Watchdog {
  public:
    explicit Watchdog(std::chrono::seconds limit);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog(Watchdog&&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    Watchdog& operator=(Watchdog&&) = delete;

    void Feed() { ++meals_; }

  private:
    void Watch(std::chrono::seconds limit);

    std::atomic<unsigned> meals_ = 0;
    std::mutex mutex_;
    std::condition_variable condition_;
    bool ended_ = false;
    pthread_t watched_;
    std::thread thread_;
};

}  // namespace vx3260::monkey
