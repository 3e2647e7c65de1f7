// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/PortsCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <algorithm>
#include <vector>

#include "cli/reports/JsonText.h"
#include "numbers/Columns.h"
#include "numbers/NumberText.h"
#include "ports/OpenPort.h"

namespace vx3260 {
namespace {

std::string AddressText(const PortListing& port) {
    return port.address == 0 ? "unknown" : PrefixedHex(port.address);
}

std::string ClaimText(PortClaim claim) {
    switch (claim) {
        case PortClaim::Possible:
            return "yes";
        case PortClaim::Failed:
            return "no";
        default:
            return "not tried";
    }
}

/// Of a row that was not tried: what the chip is. Why a claim failed is on standard error.
bool HasRemarks(const PortListing& port) {
    return port.claim == PortClaim::NotTried && !port.remarks.empty();
}

/// The remedies for a chip without permission go on over lines.
std::string FirstLineOf(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

std::string Text(const std::vector<PortListing>& ports) {
    std::vector<std::vector<std::string>> rows{{"port", "address", "permissions", "claim"}};
    const bool remarks = std::ranges::any_of(ports, HasRemarks);
    if (remarks) {
        rows.front().emplace_back("remarks");
    }
    for (const PortListing& port : ports) {
        rows.push_back({port.name, AddressText(port), port.permissions, ClaimText(port.claim)});
        if (remarks) {
            rows.back().push_back(HasRemarks(port) ? FirstLineOf(port.remarks) : "");
        }
    }
    return LeftAlignedTable(rows);
}

QJsonValue TextIf(bool applies, const std::string& text) {
    return applies ? QJsonValue(QString::fromStdString(text)) : QJsonValue();
}

std::string Json(const std::vector<PortListing>& ports) {
    QJsonArray list;
    for (const PortListing& port : ports) {
        list.append(QJsonObject{
            {"port", QString::fromUtf8(port.name)},
            {"address", port.address == 0 ? QJsonValue() : QJsonValue(port.address)},
            {"permissions", QString::fromUtf8(port.permissions)},
            {"canBeClaimed", port.claim == PortClaim::NotTried
                                 ? QJsonValue()
                                 : QJsonValue(port.claim == PortClaim::Possible)},
            {"claimFailure", TextIf(port.claim == PortClaim::Failed, port.remarks)},
            {"remarks", TextIf(port.claim == PortClaim::NotTried, port.remarks)},
        });
    }
    return JsonText({{"ports", list}});
}

/// Where a script lists the ports, the port was chosen for its other lines.
void RefuseChosenPort(const CLI::App& program) {
    for (const char* const name : {"--port", "--port-address"}) {
        const CLI::Option* const option = program.get_option_no_throw(name);
        if (option != nullptr && !option->empty()) {
            throw CLI::ValidationError(name,
                                       "the command ports does not take it: it lists all ports");
        }
    }
}

}  // namespace

PortsCommand::PortsCommand(CLI::App& program)
    : Command(program, "ports",
              "List the printer ports, whether each can be claimed, and the GPIO and FTDI chips") {
    AddFormat(Parser(), format_, {ReportFormat::Json});
    Parser().final_callback([&program] { RefuseChosenPort(program); });
}

ExitCode PortsCommand::Run(const CommandContext& context) {
    const std::vector<PortListing> ports = ListPorts(context.board.Choice());
    if (ports.empty()) {
        throw CommandError(ExitCode::NoAnswer, NoPortDetail());
    }
    context.streams.out << (format_ == ReportFormat::Json ? Json(ports) : Text(ports));
    for (const PortListing& port : ports) {
        const bool inTable = format_ != ReportFormat::Json && HasRemarks(port) &&
                             FirstLineOf(port.remarks) == port.remarks;
        if (!port.remarks.empty() && !inTable) {
            context.streams.err << port.name << ": " << port.remarks << std::endl;
        }
    }
    return ExitCode::Success;
}

}  // namespace vx3260
