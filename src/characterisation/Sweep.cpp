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

CharacterisationResults BeginningOf(Services& services, CharacterisationPlan plan) {
    return {.plan = std::move(plan),
            .program = std::string(TitleAndVersion),
            .board = BoardNameOf(services),
            .start = PresentTime(),
            .registers = SnapshotOf(ReadConfiguration(services.port, services.state.PortAddress))};
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

std::int64_t CodesOfSweep(const CharacterisationPlan& plan, std::size_t settings) {
    return static_cast<std::int64_t>(settings) * plan.count;
}

CharacterisationEnd MeasureRemaining(Services& services, ResultsFolder& folder,
                                     const SweepHooks& hooks) {
    using Seconds = std::chrono::duration<double>;
    const CharacterisationPlan plan = folder.Results().plan;
    const std::vector<CharacterisedSetting> settings = folder.Remaining();
    const Seconds whole = DurationOf(plan, settings);
    std::int64_t codesBefore = 0;
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
            hooks.afterEach(
                {codes, codesBefore + codes, (before + present * codes / plan.count) / whole});
        }
    };
    const auto finished = [&](const CharacterisedBlock& block) {
        folder.Add(block);
        codesBefore += plan.count;
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
