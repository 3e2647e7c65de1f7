// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BoardState.h"

#include "app/PortWords.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

std::string PlaceOf(const Services& services) {
    const std::string name = services.port.Name();
    return name.empty()
               ? "port " + PrefixedHex(static_cast<std::uint16_t>(services.state.PortAddress))
               : name;
}

}  // namespace

BoardName BoardNameOf(const Services& services) {
    return {services.boardLabel, PlaceOf(services), services.faults};
}

BoardState BoardStateOf(const Services& services) {
    const bool missing = services.port.Answers().Last() == ChipAnswers::Answer::Missing;
    if (!services.boardLabel.empty()) {
        const std::string meaning = "Readings come from the simulated board, not from a chip";
        return {missing ? services.boardLabel + " does not answer" : services.boardLabel, meaning,
                !missing};
    }
    const std::string failure = services.port.FailureDetail();
    if (services.state.PortClaimFailed || !failure.empty()) {
        return {
            InPortWords("{No port}", services.port),
            failure.empty() ? InPortWords("{No port} could be claimed", services.port) : failure,
            false};
    }
    if (missing) {
        return {"Board does not answer",
                InPortWords("Check the cable, the board's power and {the port}", services.port) +
                    " (" + PlaceOf(services) + ")",
                false};
    }
    return {"Board on " + PlaceOf(services),
            InPortWords("Readings come from the board at {this port}", services.port), true};
}

}  // namespace vx3260
