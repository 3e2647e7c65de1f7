#include "cli/PortOptions.h"

#include <algorithm>
#include <string_view>

#include "ports/FaultyPort.h"

namespace vx3260 {
namespace {

constexpr std::string_view faultListName = "list";

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

void TakeFaults(const std::vector<std::string>& names, Faults& faults) {
    for (const std::string& name : names) {
        if (name == faultListName) {
            // The parser's way to print a text and end well, whatever else was asked for.
            throw CLI::CallForVersion(FaultList(), 0);
        }
        if (!AddFault(name, faults)) {
            throw CLI::ValidationError(
                "--fault", "'" + name + "' is no known fault; --fault list shows them all");
        }
    }
}

}  // namespace

void AddPortOptions(CLI::App& app, PortChoice& choice) {
    CLI::Option* const simulated = app.add_flag("--simulated", choice.simulated,
                                                "Work on the simulated board, without a real one");
    app.add_option_function<std::vector<std::string>>(
           "--fault",
           [&choice](const std::vector<std::string>& names) { TakeFaults(names, choice.faults); },
           "Give the simulated board's wires a fault; may be repeated. \"list\" shows the faults")
        ->type_name("NAME")
        ->allow_extra_args(false)
        ->needs(simulated);
}

std::vector<std::string> WithoutStatusSwitch(std::vector<std::string> arguments) {
    std::erase_if(arguments,
                  [](const std::string& word) { return CLI::detail::to_lower(word) == "/ss"; });
    return arguments;
}

}  // namespace vx3260
