// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <span>
#include <thread>
#include <vector>

#include "simulator/SimulatedBoard.h"

namespace vx3260::test {

/// An FT232R on a USB bus of the kernel's that is carried over a socket, USB/IP: this process has
/// the other end of it. The kernel and the libraries above it are the real ones. The simulated
/// board is wired to TXD, RTS, DTR, RXD, CTS: SCLK, DIN, RESET, DOUT, RDY. Transfers end at the
/// ends of 1 ms frames, as those of a full-speed device do.
class UsbFtdiChip {
  public:
    UsbFtdiChip();
    /// Unplugs it.
    ~UsbFtdiChip() { Unplug(); }
    UsbFtdiChip(const UsbFtdiChip&) = delete;
    UsbFtdiChip(UsbFtdiChip&&) = delete;
    UsbFtdiChip& operator=(const UsbFtdiChip&) = delete;
    UsbFtdiChip& operator=(UsbFtdiChip&&) = delete;

    void Unplug();

    /// The transfers of pin levels to the chip so far.
    int Exchanges() const { return exchanges_; }

  private:
    struct Header;

    void Serve();
    bool Receive(void* to, std::size_t size) const;
    void Reply(const Header& header, std::span<const std::uint8_t> data, int length) const;
    std::vector<std::uint8_t> Control(const std::array<std::uint8_t, 8>& setup);
    std::vector<std::uint8_t> Samples(std::size_t length);
    void AwaitFrame() const;
    std::uint8_t Sample();
    void Step(std::uint8_t out);

    int socket_ = -1;
    SimulatedBoard board_;
    unsigned pattern_ = 0x1A;
    std::uint8_t pins_ = 0x11;
    std::deque<std::uint8_t> samples_;
    int latency_ = 16;  ///< milliseconds
    int mode_ = 0;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::atomic<int> exchanges_ = 0;
    std::thread thread_;
};

}  // namespace vx3260::test
