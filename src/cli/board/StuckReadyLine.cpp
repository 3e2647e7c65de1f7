// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/StuckReadyLine.h"

#include "app/PortWords.h"
#include "cli/board/BoardRegisters.h"
#include "link/Converter.h"
#include "link/DataReady.h"
#include "link/RegisterLookup.h"
#include "options/ExitCodes.h"

namespace vx3260 {
namespace {

struct ReadyBit {
    std::string_view name;
    Converter converter;
};

constexpr ReadyBit readyBits[] = {{"rdy0", Converter::Main}, {"rdy1", Converter::Aux}};

/// A result stays ready until it is read, so one contradiction would prove a stuck line; the others
/// allow for a status read during an update or a disturbance. All take less than a conversion.
constexpr int contradictionsThatProve = 3;
constexpr int maxLooks = 8;

[[noreturn]] void RefuseStuckLine(const Services& services, const std::string& contradiction) {
    throw CommandError(
        ExitCode::NoAnswer,
        "the data-ready line is stuck low: " + contradiction +
            InPortWords(". Check the cable and the board's {data-ready line}.", services.port));
}

bool IsSet(const RegisterReading& status, std::string_view bit) {
    return (status.value & RegisterMap::FieldNamed(status.description, bit).mask) != 0;
}

/// Reads the results that the status register shows. False when it shows none.
bool DiscardResults(Services& services) {
    const RegisterReading status =
        ReadDescribed(services, RegisterMap::DescriptionOf(RegisterMap::Status));
    bool taken = false;
    for (const ReadyBit& bit : readyBits) {
        if (IsSet(status, bit.name)) {
            ReadContents(services, TraitsOf(bit.converter).data);
            taken = true;
        }
    }
    return taken;
}

}  // namespace

void CheckReadyLine(Services& services) {
    int contradictions = 0;
    for (int look = 0; look < maxLooks && IsReady(services.port, services.state.PortAddress);
         ++look) {
        contradictions = DiscardResults(services) ? 0 : contradictions + 1;
        if (contradictions == contradictionsThatProve) {
            RefuseStuckLine(services, "it announces a result while the status register shows none");
        }
    }
}

void CheckCalibrationEnded(Services& services) {
    if (IsSet(ReadDescribed(services, RegisterMap::DescriptionOf(RegisterMap::Status)), "cal")) {
        RefuseStuckLine(services,
                        "it announces the end of a calibration that goes on, as the status "
                        "register shows");
    }
}

}  // namespace vx3260
