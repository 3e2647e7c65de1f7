// SPDX-License-Identifier: GPL-3.0-or-later
#include "options/PortOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"
#include "numbers/RuntimeError.h"
#include "numbers/WholeNumber.h"
#include "options/Completion.h"
#include "options/Validators.h"
#include "ports/FaultyPort.h"
#include "ports/LineChoice.h"

namespace vx3260 {
namespace {

using Microseconds = std::chrono::duration<double, std::micro>;

constexpr std::string_view faultListName = "list";

constexpr const char* driverMethod = "driver";
constexpr const char* directMethod = "direct";

std::string FaultList() {
    std::size_t width = 0;
    for (const FaultDescription& fault : KnownFaults()) {
        width = std::max(width, fault.name.size());
    }
    std::string list;
    for (const FaultDescription& fault : KnownFaults()) {
        list += list.empty() ? "" : "\n";
        list += std::string(fault.name) + std::string(width - fault.name.size() + 2, ' ') +
                std::string(fault.text);
    }
    return list;
}

void AddFaults(const std::vector<std::string>& names, Faults& faults) {
    for (const std::string& name : names) {
        if (name == faultListName) {
            // Makes the parser print a text and end with success, whatever else was given.
            throw CLI::CallForVersion(FaultList(), 0);
        }
        if (!AddFault(name, faults)) {
            throw CLI::ValidationError(
                "--fault", "'" + name + "' is not a known fault; --fault list shows them all");
        }
    }
}

/// Decimal, or hexadecimal after "0x": above 0 and within the addresses of 16 bits with a sign.
std::string RefuseOtherThanAddress(const std::string& text) {
    const std::optional<std::int64_t> address = WholeNumber(text);
    const bool fits = address && *address > 0 && *address <= MaxDirectAddress;
    return fits ? ""
                : "'" + text + "' is not an address from 1 to " + std::to_string(MaxDirectAddress) +
                      ", such as 888 or 0x378";
}

std::string RefuseOtherThanMicroseconds(const std::string& text) {
    // 100000 polls of this length take under two minutes.
    constexpr int maxMicroseconds = 1000;
    try {
        const double microseconds = TextToDouble(text);
        if (microseconds >= 0 && microseconds <= maxMicroseconds) {
            return "";
        }
    } catch (const RuntimeError&) {
        // Refused below, like a number outside the range.
    }
    return "'" + text + "' is not a number of microseconds from 0 to " +
           std::to_string(maxMicroseconds);
}

std::chrono::nanoseconds ToPollTime(const std::string& microseconds) {
    return std::chrono::nanoseconds(std::llround(TextToDouble(microseconds) * 1e3));
}

/// Of a fault with a number, up to the number.
std::vector<Candidate> FaultCandidates(const std::string& /*begun*/, const std::string& /*first*/) {
    std::vector<Candidate> candidates{{std::string(faultListName), "Show the faults"}};
    for (const FaultDescription& fault : KnownFaults()) {
        const std::size_t equals = std::min(fault.name.find('='), fault.name.size() - 1);
        candidates.push_back(
            {std::string(fault.name.substr(0, equals + 1)), std::string(fault.text)});
    }
    return candidates;
}

std::vector<Candidate> PortCandidates(const std::string& begun, const std::string& /*first*/) {
    std::vector<Candidate> candidates;
    for (const auto& names : {PortNames(), LineChoicesFrom(begun)}) {
        for (const std::string& name : names) {
            candidates.push_back({name});
        }
    }
    return candidates;
}

std::string RefuseBadLines(const std::string& port) {
    try {
        if (IsLineChoice(port)) {
            ParseLineChoice(port);
        }
        return "";
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
}

void AddDeviceOptions(CLI::App& app, PortChoice& choice, CLI::Option* simulated) {
    app.add_option_function<std::string>(
           "--port-access",
           [&choice](const std::string& name) {
               choice.method = name == directMethod ? PortMethod::Direct : PortMethod::Driver;
           },
           "How to reach the port: by the system's driver, or directly as the superuser")
        ->check(CLI::IsMember({driverMethod, directMethod}))
        ->default_str(driverMethod)
        ->excludes(simulated);
    app.add_option_function<std::string>(
           "--port",
           [&choice](const std::string& port) {
               if (choice.method == PortMethod::Direct && IsLineChoice(port)) {
                   throw CLI::ValidationError("--port", "lines have no --port-access=direct");
               }
               choice.device = port;
           },
           "The printer port; without it, the first there is. Or lines of a GPIO chip, by "
           "names or numbers: gpio:sclk=GPIO24,din=GPIO23,reset=GPIO22,dout=GPIO18,"
           "rdy=GPIO17[,held=...][,chip=/dev/gpiochip0]; what is left out is as here. Or pins of "
           "an "
           "FTDI chip: ftdi:serial=XXXX,sclk=TXD,din=RTS,reset=DTR,dout=RXD,rdy=CTS")
        ->type_name("/dev/parportN|gpio:...|ftdi:...")
        ->check(CLI::Validator(RefuseBadLines, ""))
        ->check(Offering(PortCandidates))
        ->excludes(simulated);
    app.add_option_function<std::string>(
           "--port-address",
           [&choice](const std::string& text) {
               // The options are taken in the order in which they are added.
               if (choice.method != PortMethod::Direct) {
                   throw CLI::ValidationError("--port-address", "needs --port-access=direct");
               }
               choice.address = static_cast<std::int32_t>(*WholeNumber(text));
           },
           "Base address of the port, for direct access")
        ->type_name("ADDRESS")
        ->check(CLI::Validator(RefuseOtherThanAddress, ""))
        ->excludes(simulated);
}

void AddPollTime(CLI::App& app, PortChoice& choice, CLI::Option* simulated) {
    app.add_option_function<std::string>(
           "--poll-time",
           [&choice](const std::string& text) { choice.pollTime = ToPollTime(text); },
           "Least time of a read of the port, at most 1000: 100000 reads are the limit of a wait "
           "for data")
        ->type_name("US")
        ->check(CLI::Validator(RefuseOtherThanMicroseconds, ""))
        ->default_str(ShortestText(Microseconds(DefaultPollTime).count()))
        ->excludes(simulated);
}

}  // namespace

void AddPortOptions(CLI::App& app, PortChoice& choice) {
    CLI::Option* const simulated = app.add_flag("--simulated", choice.simulated,
                                                "Work on the simulated board, without a real one");
    app.add_option_function<std::vector<std::string>>(
           "--fault",
           [&choice](const std::vector<std::string>& names) { AddFaults(names, choice.faults); },
           "Give the simulated board's wires a fault; may be repeated. \"list\" shows the faults")
        ->type_name("NAME")
        ->allow_extra_args(false)
        ->check(Offering(FaultCandidates))
        ->needs(simulated);
    app.add_option("--seed", choice.seed, "Give the simulated board other noise, by any number")
        ->type_name("N")
        ->default_str(std::to_string(choice.seed))
        ->needs(simulated);
    if (RealPortsAreDevices) {
        AddDeviceOptions(app, choice, simulated);
    }
    AddPollTime(app, choice, simulated);
    app.add_option("--trace", choice.traceFile,
                   "Write the board's lines and the accesses they carry as a Value Change Dump")
        ->type_name("FILE.vcd")
        ->check(FileName());
}

}  // namespace vx3260
