// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartUp.h"

#include <algorithm>
#include <string_view>

#include "app/MessageTexts.h"
#include "app/PortWords.h"
#include "app/PrinterPorts.h"
#include "link/BoardLines.h"
#include "link/ParallelPort.h"
#include "link/PortAccess.h"
#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

constexpr std::int32_t firstPort = 1;
constexpr std::string_view statusSwitch = "/SS";

struct VersionName {
    std::int32_t number;
    std::string_view name;
};

/// By minor version.
constexpr VersionName windows95Family[] = {{0, "Windows 95"}, {10, "Windows 98"}};
/// By major version.
constexpr VersionName windowsNtFamily[] = {
    {3, "Windows NT 3.51"}, {4, "Windows NT 4.0"}, {5, "Windows 2000"}};

template <std::size_t size>
std::string NameOf(const VersionName (&names)[size], std::int32_t number) {
    const auto found = std::find_if(std::begin(names), std::end(names),
                                    [number](const VersionName& v) { return v.number == number; });
    return found == std::end(names) ? std::string() : std::string(found->name);
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string ClaimFailureDetail(const ParallelPort& port) {
    const std::string wiring = WiringText(port);
    return port.FailureDetail() + (wiring.empty() ? "" : "\nThe chosen lines: " + wiring + ".");
}

void ClaimPort(Services& services) {
    services.state.PortCount = services.port.GetParallelPortCount();
    if (services.port.ClaimParallelPort(firstPort, -1) == 0) {
        services.state.PortClaimFailed = true;
        services.messages.Show({.text = std::string(MessageTexts::ClaimFailed),
                                .detail = ClaimFailureDetail(services.port)});
    }
}

/// Only the item of the port that was found stays enabled; with an add-in card's address, all do.
void EnableMatchingPort(ApplicationState& state) {
    const auto matches = [&state](const PrinterPort& p) { return p.address == state.PortAddress; };
    if (std::none_of(PrinterPorts.begin(), PrinterPorts.end(), matches)) {
        return;
    }
    std::transform(PrinterPorts.begin(), PrinterPorts.end(), state.PrinterPortEnabled.begin(),
                   matches);
}

void FindPortAddress(Services& services) {
    ParallelPortInfo info;
    if (services.port.GetParallelPortInfo(firstPort, info) == 0) {
        const std::string reason = services.port.FailureDetail();
        services.messages.Show({.text = std::string(MessageTexts::NoPrinterPort),
                                .icon = MessageIcon::Exclamation,
                                .title = std::string(MessageTexts::NoPrinterPortTitle),
                                .detail = reason + (reason.empty() ? "" : "\n") +
                                          "Without a board, " +
                                          std::string(MessageTexts::SimulatedHint) + "."});
        return;
    }
    try {
        services.state.PortAddress = ToInt16(info.address);
    } catch (const RuntimeError& error) {
        services.messages.Show({.text = error.what(),
                                .icon = MessageIcon::Critical,
                                .detail = MessageTexts::AddressTooHigh(info.address)});
        return;
    }
    EnableMatchingPort(services.state);
}

void InitialiseControlRegister(ParallelPort& port, std::int16_t portAddress) {
    const std::int16_t control = ToInt16(portAddress + BoardLines::ControlRegister);
    PortOut(port, control,
            static_cast<std::int16_t>(PortIn(port, control) & BoardLines::ControlKept));
}

void ShowStatus(Services& services) {
    services.messages.Show({.text = MessageTexts::Status(services.state.WindowsVersionText,
                                                         services.state.PortAddress),
                            .icon = MessageIcon::Information,
                            .title = "Show Status"});
}

}  // namespace

std::string GetWindowsVersion(OperatingSystem& system) {
    const SystemVersion version = system.QueryVersion();
    switch (version.platform) {
        case 1:
            return NameOf(windows95Family, version.minor);
        case 2:
            return NameOf(windowsNtFamily, version.major);
        default:
            return "Failed";
    }
}

bool HoldsStatusSwitch(std::string_view text) {
    return Contains(UpperCase(text), statusSwitch);
}

bool IsStatusSwitch(std::string_view word) {
    return UpperCase(word) == statusSwitch;
}

bool StatusRequested(OperatingSystem& system) {
    return HoldsStatusSwitch(system.CommandLine());
}

void SetUpPort(Services& services, bool statusRequested) {
    ApplicationState& state = services.state;
    state.WindowsVersionText = GetWindowsVersion(services.system);
    const bool fixedAddress =
        Contains(state.WindowsVersionText, "95") || Contains(state.WindowsVersionText, "98");
    state.IsNtFamily = fixedAddress ? 0 : -1;
    if (fixedAddress) {
        state.PortAddress = DefaultPortAddress;
    } else {
        ClaimPort(services);
        FindPortAddress(services);
    }
    try {
        InitialiseControlRegister(services.port, state.PortAddress);
    } catch (const RuntimeError& error) {
        services.messages.Show({.text = error.what(), .icon = MessageIcon::Critical});
    }
    if (statusRequested) {
        ShowStatus(services);
    }
}

void StartUp(Services& services, bool statusRequested) {
    SetUpPort(services, statusRequested);
    services.state.ReferenceVoltage = DefaultReferenceVoltage;
}

void StartUp(Services& services) {
    StartUp(services, StatusRequested(services.system));
}

}  // namespace vx3260
