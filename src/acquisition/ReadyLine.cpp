// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ReadyLine.h"

#include <string_view>

#include "app/PortWords.h"
#include "link/Converter.h"
#include "link/DataReady.h"
#include "link/Register.h"
#include "link/RegisterLookup.h"

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

/// Reads the results that the status register shows. False when it shows none.
bool DiscardResults(Services& services) {
    const std::int16_t& address = services.state.PortAddress;
    const std::int32_t status = ReadRegister(services.port, address, RegisterMap::Status);
    bool taken = false;
    for (const ReadyBit& bit : readyBits) {
        const auto& description = RegisterMap::DescriptionOf(RegisterMap::Status);
        if ((status & RegisterMap::FieldNamed(description, bit.name).mask) != 0) {
            ReadRegister(services.port, address, TraitsOf(bit.converter).data);
            taken = true;
        }
    }
    return taken;
}

}  // namespace

bool ReadyLineIsStuck(Services& services) {
    int contradictions = 0;
    for (int look = 0; look < maxLooks && IsReady(services.port, services.state.PortAddress);
         ++look) {
        contradictions = DiscardResults(services) ? 0 : contradictions + 1;
        if (contradictions == contradictionsThatProve) {
            return true;
        }
    }
    return false;
}

std::string CheckReadyLineAdvice(const ParallelPort& port) {
    return InPortWords("Check the cable and the board's {data-ready line}.", port);
}

}  // namespace vx3260
