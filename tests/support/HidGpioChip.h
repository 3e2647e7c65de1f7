// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

#include "simulator/SimulatedBoard.h"

namespace vx3260::test {

/// A CP2112, a USB chip with 8 GPIO lines, as a device that this process makes through /dev/uhid:
/// the kernel's own driver makes a GPIO chip of it. The simulated board is wired to its lines 0 to
/// 4: SCLK, DIN, RESET, DOUT, RDY.
class HidGpioChip {
  public:
    /// Waits until the GPIO chip is there. Throws if none comes.
    HidGpioChip();
    /// Unplugs it.
    ~HidGpioChip();
    HidGpioChip(const HidGpioChip&) = delete;
    HidGpioChip(HidGpioChip&&) = delete;
    HidGpioChip& operator=(const HidGpioChip&) = delete;
    HidGpioChip& operator=(HidGpioChip&&) = delete;

    /// "/dev/gpiochip0"
    const std::string& Path() const { return path_; }

    /// As `--port` takes it.
    std::string Port() const { return "gpio:sclk=0,din=1,reset=2,dout=3,rdy=4,chip=" + path_; }

    /// RDY stays high for this time from now on, in real time.
    void DelayReady(std::chrono::milliseconds time) {
        readyFrom_ = std::chrono::steady_clock::now() + time;
    }

    int Looks() const { return looks_; }

    void Unplug();

  private:
    void Serve();
    void Set(unsigned values, unsigned mask);
    unsigned Lines();

    int device_;
    std::string path_;
    SimulatedBoard board_;
    unsigned pattern_ = 0x1A;
    std::atomic<bool> stop_ = false;
    std::atomic<int> looks_ = 0;
    std::atomic<std::chrono::steady_clock::time_point> readyFrom_{};
    std::thread thread_;
};

}  // namespace vx3260::test
