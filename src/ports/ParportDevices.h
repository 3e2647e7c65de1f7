// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vx3260 {

/// A printer port of the Linux parport driver.
struct ParportDevice {
    std::string path;              ///< "/dev/parport0"
    std::int32_t baseAddress = 0;  ///< I/O address; 0 if the kernel reports none
};

/// The machine's printer ports in the order of their numbers; empty where the kernel has none or
/// its modules are not loaded.
std::vector<ParportDevice> FindParportDevices();

/// The first of them.
std::optional<ParportDevice> FirstParportDevice();

/// The device with a path, which need not exist.
ParportDevice ParportDeviceAt(const std::string& path);

/// What ppdev reports for a device: its own base address where that is one of the printer-port
/// menu's (888, 632 and 956), and otherwise 888. Add-in cards sit above 32767, and the device is
/// reached without an address.
std::int32_t ReportedAddress(const ParportDevice& device);

/// What to do where there is no printer port; `path` is the one that was looked for.
std::string NoDeviceDetail(const std::string& path);

/// Why a device cannot be opened, and the remedy; `error` is the errno of the attempt.
std::string OpenFailureDetail(const std::string& path, int error);

/// Why a device that could be opened cannot be claimed, who holds it as far as that can be found
/// out, and the remedy.
std::string ClaimFailureDetail(const std::string& path, int error);

}  // namespace vx3260
