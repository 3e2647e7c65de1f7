// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/OpenPort.h"

#include <cerrno>
#include <utility>

#include "app/MessageTexts.h"
#include "app/PrinterPorts.h"
#include "link/BlockConditions.h"
#include "ports/SimulatedPort.h"
#include "ports/TracePort.h"

#if defined(__linux__)
#include "ports/DeviceFiles.h"
#include "ports/DirectPort.h"
#include "ports/FtdiLines.h"
#include "ports/GpioLines.h"
#include "ports/LinePort.h"
#include "ports/ParportDevices.h"
#include "ports/PpdevPort.h"
#else
#include "ports/ParllioPort.h"
#endif

namespace vx3260 {
namespace {

#if defined(__linux__)

std::unique_ptr<Lines> OpenLines(const LineChoice& choice) {
    if (choice.kind == LineKind::Ftdi) {
        return std::make_unique<FtdiLines>(choice, FindFtdiDevices(), FtdiUsb());
    }
    return std::make_unique<GpioLines>(choice);
}

std::unique_ptr<ParallelPort> OpenRealPort(const PortChoice& choice) {
    if (IsLineChoice(choice.device)) {
        const LineChoice lines = ParseLineChoice(choice.device);
        return std::make_unique<LinePort>(OpenLines(lines), lines.lines, choice.pollTime);
    }
    if (choice.method == PortMethod::Direct) {
        return std::make_unique<DirectPort>(choice.address, choice.device, choice.pollTime);
    }
    return std::make_unique<PpdevPort>(choice.device, choice.pollTime);
}

std::string GpioChoiceText(const std::string& path) {
    return "gpio:chip=" + path;
}

/// Claiming a chip's lines would drive them.
PortListing ListingOf(const std::string& path) {
    PortListing listing{.name = GpioChoiceText(path),
                        .permissions = PermissionsOf(path),
                        .claim = PortClaim::NotTried};
    if (const std::optional<GpioChip> chip = GpioChipAt(path)) {
        const std::string held = HeldLinesText(*chip);
        listing.remarks = GpioChipText(*chip) + (held.empty() ? "" : "; held: " + held);
    } else {
        listing.remarks = GpioOpenFailureDetail(path, errno);
    }
    return listing;
}

std::vector<PortListing> ListRealPorts(const PortChoice& choice) {
    std::vector<PortListing> ports;
    for (const ParportDevice& device : FindParportDevices()) {
        PpdevPort port(device.path, choice.pollTime);
        const bool claimed = port.ClaimParallelPort(1, -1) != 0;
        ports.push_back({device.path, device.baseAddress, PermissionsOf(device.path),
                         claimed ? PortClaim::Possible : PortClaim::Failed,
                         claimed ? "" : port.FailureDetail()});
    }
    for (const std::string& path : FindGpioChips()) {
        ports.push_back(ListingOf(path));
    }
    const std::vector<FtdiDevice> devices = FindFtdiDevices();
    for (const FtdiDevice& device : devices) {
        ports.push_back({.name = FtdiChoiceText(device, devices),
                         .permissions = PermissionsOf(device.path),
                         .claim = PortClaim::NotTried,
                         .remarks = device.product + ", " + device.path});
    }
    return ports;
}

std::vector<std::string> RealPortNames() {
    std::vector<std::string> names;
    for (const ParportDevice& device : FindParportDevices()) {
        names.push_back(device.path);
    }
    for (const std::string& path : FindGpioChips()) {
        names.push_back(GpioChoiceText(path));
    }
    const std::vector<FtdiDevice> devices = FindFtdiDevices();
    for (const FtdiDevice& device : devices) {
        names.push_back(FtdiChoiceText(device, devices));
    }
    return names;
}

#else

std::vector<std::string> RealPortNames() {
    return {};
}

std::unique_ptr<ParallelPort> OpenRealPort(const PortChoice& choice) {
    return std::make_unique<ParllioPort>(choice.pollTime);
}

std::vector<PortListing> ListRealPorts(const PortChoice& choice) {
    ParllioPort library(choice.pollTime);
    std::vector<PortListing> ports;
    for (std::int32_t number = 1; number <= library.GetParallelPortCount(); ++number) {
        const bool claimed = library.ClaimParallelPort(number, -1) != 0;
        const std::string failure = claimed ? "" : library.FailureDetail();
        ParallelPortInfo info;
        library.GetParallelPortInfo(number, info);
        ports.push_back({"port " + std::to_string(number),
                         info.address,
                         {},
                         claimed ? PortClaim::Possible : PortClaim::Failed,
                         failure});
    }
    return ports;
}

#endif

OpenedPort OpenBare(const PortChoice& choice) {
    if (!choice.simulated) {
        return {OpenRealPort(choice), {}, {}};
    }
    return {std::make_unique<SimulatedPort>(choice.seed), std::string(SimulatedBoardLabel),
            choice.faults.names};
}

}  // namespace

OpenedPort OpenPort(const PortChoice& choice, const std::int16_t& portAddress) {
    OpenedPort opened = OpenBare(choice);
    if (choice.faults != Faults{}) {
        opened.port = std::make_unique<FaultyPort>(std::move(opened.port), choice.faults);
    }
    if (!choice.traceFile.empty()) {
        opened.port =
            std::make_unique<TracePort>(std::move(opened.port), choice.traceFile, portAddress);
    }
    return opened;
}

std::vector<PortListing> ListPorts(const PortChoice& choice) {
    if (choice.simulated) {
        return {{"simulated", DefaultPortAddress, {}}};
    }
    return ListRealPorts(choice);
}

std::vector<std::string> PortNames() {
    return RealPortNames();
}

std::string NoPortDetail() {
    const std::string failure = OpenRealPort({})->FailureDetail();
    const std::string reason = failure.empty() ? "There is no printer port." : failure;
    return (RealPortsAreDevices
                ? "This machine has no printer port, no GPIO chip (/dev/gpiochip0 ...) and no "
                  "FTDI device on USB.\n"
                : "") +
           reason + "\nWithout a board, " + std::string(MessageTexts::SimulatedHint) + ".";
}

}  // namespace vx3260
