// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ConditionsRecorder.h"

#include <utility>

#include "analysis/BlockWarnings.h"
#include "app/ApplicationInfo.h"
#include "app/BoardState.h"

namespace vx3260 {
UtcTime PresentTime() {
    return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

ConditionsRecorder::ConditionsRecorder(const Services& services, Converter converter)
    : services_(services), start_(services.port.Now()) {
    conditions_.converter = converter;
    conditions_.registers = services.port.Registers().Snapshot();
    conditions_.board = BoardNameOf(services);
    conditions_.program = TitleAndVersion;
    conditions_.start = PresentTime();
}

void ConditionsRecorder::CodeRead() {
    conditions_.seconds.push_back(
        std::chrono::duration<double>(services_.port.Now() - start_).count());
}

BlockConditions ConditionsRecorder::End(ReadingEnd outcome, float referenceVoltage) && {
    conditions_.end = PresentTime();
    conditions_.outcome = outcome;
    conditions_.referenceVoltage = referenceVoltage;
    const std::vector<double>& seconds = conditions_.seconds;
    if (seconds.size() > 1) {
        conditions_.meanInterval =
            (seconds.back() - seconds.front()) / static_cast<double>(seconds.size() - 1);
    }
    const std::optional<double> rate = conditions_.NominalRate();
    conditions_.missedConversions =
        MissedConversions(seconds, rate ? std::optional(1 / *rate) : std::nullopt);
    return std::move(conditions_);
}

}  // namespace vx3260
