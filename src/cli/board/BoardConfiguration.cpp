// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/BoardConfiguration.h"

#include "acquisition/ConditionsRecorder.h"
#include "app/ApplicationInfo.h"
#include "app/BoardState.h"
#include "cli/board/BoardRegisters.h"
#include "link/RegisterLookup.h"

namespace vx3260 {

Configuration ReadAnsweredConfiguration(Services& services, std::string_view consequence) {
    const RegisterMap::RegisterDescription& first = RegisterMap::DescriptionOf(RegisterMap::Mode);
    ReadAnswered(services, first, consequence);
    Configuration configuration = ReadConfiguration(services.port, services.state.PortAddress);
    ReadAnswered(services, first, consequence);
    return configuration;
}

ConfigurationHead HeadNow(const Services& services) {
    return {.program = std::string(TitleAndVersion),
            .board = BoardNameOf(services),
            .time = PresentTime()};
}

}  // namespace vx3260
