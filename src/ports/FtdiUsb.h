// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "ports/FtdiDevices.h"

namespace vx3260 {

/// The pins of an FTDI chip in synchronous bit-bang mode: for each byte put out, the levels of all
/// pins are sampled just before. The seam between FtdiLines and the USB library.
class PinExchange {
  public:
    virtual ~PinExchange() = default;
    PinExchange(const PinExchange&) = delete;
    PinExchange(PinExchange&&) = delete;
    PinExchange& operator=(const PinExchange&) = delete;
    PinExchange& operator=(PinExchange&&) = delete;

    /// Takes the device away from the system's serial driver, which gets it back at the end, and
    /// makes these pins outputs. False on failure.
    virtual bool Open(const FtdiDevice& device, std::uint8_t outputs) = 0;

    /// Puts the bytes out and fills in as many samples. At most MaxExchange, in whole packets:
    /// more would not fit the chip's buffers, and less would wait for its latency timer. False on
    /// failure.
    virtual bool Exchange(std::span<const std::uint8_t> bytes, std::span<std::uint8_t> samples) = 0;

    /// The library's text for the last failure.
    virtual std::string Failure() const = 0;

    static constexpr std::size_t Packet = 62;  ///< samples that one USB packet carries
    static constexpr std::size_t MaxExchange = 2 * Packet;

  protected:
    PinExchange() = default;
};

/// The real chips, by libftdi1; empty in a program that was built without it.
std::unique_ptr<PinExchange> FtdiUsb();

}  // namespace vx3260
