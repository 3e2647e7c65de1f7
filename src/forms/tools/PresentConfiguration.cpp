// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/PresentConfiguration.h"

#include "acquisition/ConditionsRecorder.h"
#include "app/ApplicationInfo.h"
#include "app/BoardState.h"
#include "app/PortWords.h"
#include "configuration/ConfigurationFile.h"
#include "files/CodeFile.h"
#include "link/BoardCheck.h"

namespace vx3260 {
namespace {

bool IsMissing(Services& services) {
    const std::int16_t& address = services.state.PortAddress;
    return AllBitsRead(services.port, address, 0) || AllBitsRead(services.port, address, 1);
}

}  // namespace

/// The board is looked at afterwards too: it may go while the registers are read.
std::optional<Configuration> ReadPresentConfiguration(Services& services,
                                                      const std::string& consequence) {
    if (!IsMissing(services)) {
        Configuration present = ReadConfiguration(services.port, services.state.PortAddress);
        if (!IsMissing(services)) {
            return present;
        }
    }
    const std::string failure = services.port.FailureDetail();
    services.messages.Show(
        {.text = "The board does not answer",
         .icon = MessageIcon::Exclamation,
         .detail = consequence + " " +
                   (failure.empty()
                        ? InPortWords("Check the {cable} and the board's power.", services.port)
                        : failure)});
    return std::nullopt;
}

Configuration LoadChosenConfiguration(const std::string& path) {
    CheckIsNotDevice(path);
    return LoadConfiguration(path);
}

ConfigurationHead PresentHead(const Services& services) {
    return {.program = std::string(TitleAndVersion),
            .board = BoardNameOf(services),
            .time = PresentTime()};
}

}  // namespace vx3260
