// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vx3260 {

/// A USB device of FTDI's that has pins in bit-bang mode. Cables for other uses look alike.
struct FtdiDevice {
    std::string serial{};   ///< empty where it has none
    std::string product{};  ///< "FT232R USB UART"
    std::uint8_t bus = 0;
    std::uint8_t address = 0;
    std::string path{};  ///< "/dev/bus/usb/001/004"
};

/// Where the kernel lists USB devices.
inline constexpr const char* UsbFolder = "/sys/bus/usb/devices";

/// The FTDI devices of the machine. Opens none of them.
std::vector<FtdiDevice> FindFtdiDevices(const std::string& folder = UsbFolder);

/// What --port takes to choose this one of the devices: its serial number, or its path where there
/// is none of its own.
std::string FtdiChoiceText(const FtdiDevice& device, const std::vector<FtdiDevice>& devices);

/// The device with this serial number or path, or the only one where `choice` is empty. Returns
/// nothing, and why in `failure`, where there is none or a choice has to be made.
std::optional<FtdiDevice> ChooseFtdiDevice(const std::vector<FtdiDevice>& devices,
                                           const std::string& choice, std::string& failure);

/// Why a device cannot be opened, and the remedy; `reason` is the USB library's.
std::string FtdiOpenFailureDetail(const FtdiDevice& device, const std::string& reason);

}  // namespace vx3260
