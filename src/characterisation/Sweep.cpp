// SPDX-License-Identifier: GPL-3.0-or-later
#include "characterisation/Sweep.h"

#include <cmath>
#include <utility>

#include "acquisition/ConditionsRecorder.h"
#include "app/ApplicationInfo.h"
#include "app/BoardState.h"
#include "link/RegisterLookup.h"
#include "numbers/NumberText.h"

namespace vx3260 {

CharacterisationPlan InOrder(CharacterisationPlan plan) {
    for (std::vector<std::int32_t>* const codes : {&plan.ranges, &plan.filterWords}) {
        std::ranges::sort(*codes);
        codes->erase(std::unique(codes->begin(), codes->end()), codes->end());
    }
    return plan;
}

CharacterisationResults BeginningOf(Services& services, CharacterisationPlan plan) {
    return {.plan = std::move(plan),
            .program = std::string(TitleAndVersion),
            .board = BoardNameOf(services),
            .start = PresentTime(),
            .registers =
                SnapshotOf(ReadSteadyConfiguration(services.port, services.state.PortAddress))};
}

std::chrono::duration<double> DurationOf(const CharacterisationPlan& plan,
                                         std::span<const CharacterisedSetting> settings) {
    std::chrono::duration<double> duration{};
    for (const CharacterisedSetting& setting : settings) {
        duration += DurationOf(plan, setting);
    }
    return duration;
}

std::string SweepText(const CharacterisationPlan& plan,
                      std::span<const CharacterisedSetting> settings) {
    const auto seconds = static_cast<std::int64_t>(std::ceil(DurationOf(plan, settings).count()));
    return CountText(static_cast<std::int64_t>(settings.size()), "setting") + " with " +
           CountText(plan.count, "code") + " each, after " + std::to_string(plan.settle) +
           " to settle; " + DurationText(std::chrono::seconds(seconds)) + " at the chip's rates";
}

std::vector<std::string> RestoredLines(const std::vector<RegisterMismatch>& mismatches) {
    if (mismatches.empty()) {
        return {"All registers are as they were before, verified"};
    }
    std::vector<std::string> lines;
    for (const RegisterMismatch& mismatch : mismatches) {
        const RegisterMap::RegisterDescription& description = mismatch.wanted.description;
        lines.push_back("Not restored: " + std::string(description.name) + " was " +
                        RegisterMap::RegisterHex(mismatch.wanted.value, description.access) +
                        " and reads " +
                        RegisterMap::RegisterHex(mismatch.readBack, description.access));
    }
    return lines;
}

CharacterisationEnd MeasureRemaining(Services& services, ResultsFolder& folder,
                                     const SweepHooks& hooks) {
    using Seconds = std::chrono::duration<double>;
    const CharacterisationPlan plan = folder.Results().plan;
    const std::vector<CharacterisedSetting> settings = folder.Remaining();
    const Seconds whole = DurationOf(plan, settings);
    Seconds before{};
    Seconds present{};
    const auto starting = [&](const CharacterisedSetting& setting) {
        present = DurationOf(plan, setting);
        if (hooks.starting) {
            hooks.starting(setting);
        }
    };
    const auto afterEach = [&](int codes) {
        if (hooks.afterEach) {
            hooks.afterEach({codes, (before + present * codes / plan.count) / whole});
        }
    };
    const auto finished = [&](const CharacterisedBlock& block) {
        folder.Add(block);
        before += present;
        if (hooks.finished) {
            hooks.finished(block);
        }
    };
    return Characterise(services, plan, settings,
                        {.starting = starting,
                         .afterEach = afterEach,
                         .finished = finished,
                         .stopRequested = hooks.stopRequested,
                         .restored = hooks.restored});
}

}  // namespace vx3260
