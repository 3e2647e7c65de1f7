// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "characterisation/ResultsFolder.h"

/// A characterisation from the plan to the files, for the command and the form alike.
namespace vx3260 {

/// Adds what a list does not have yet.
template <typename Value>
void AddOnce(std::vector<Value>& values, Value value) {
    if (std::find(values.begin(), values.end(), value) == values.end()) {
        values.push_back(value);
    }
}

/// The largest number of results that can be dropped first.
inline constexpr int MaxSettle = 10000;

/// The plan with ranges and filter words in ascending order, each once: rates fall down the tables.
CharacterisationPlan InOrder(CharacterisationPlan plan);

/// The results of a plan of which nothing is measured yet. Reads all registers; throws
/// UnsteadyRegisters.
CharacterisationResults BeginningOf(Services& services, CharacterisationPlan plan);

/// How long these settings take by the chip's rates.
std::chrono::duration<double> DurationOf(const CharacterisationPlan& plan,
                                         std::span<const CharacterisedSetting> settings);

/// "24 settings with 1000 codes each, after 4 to settle; 5:12 at the chip's rates".
std::string SweepText(const CharacterisationPlan& plan,
                      std::span<const CharacterisedSetting> settings);

/// That all registers were restored and verified, or which were not, a line each.
std::vector<std::string> RestoredLines(const std::vector<RegisterMismatch>& mismatches);

/// How far a sweep is after a code.
struct SweepProgress {
    int codes;    ///< of the present setting
    double part;  ///< of the time that the chip needs, 0 to 1
};

struct SweepHooks {
    std::function<void(const CharacterisedSetting&)> starting{};
    std::function<void(const SweepProgress&)> afterEach{};
    std::function<void(const CharacterisedBlock&)> finished{};  ///< it is in the folder then
    std::function<bool()> stopRequested{};
    std::function<void(const std::vector<RegisterMismatch>&)> restored{};
};

/// Measures what is left of the folder's plan, and puts each setting there at once.
CharacterisationEnd MeasureRemaining(Services& services, ResultsFolder& folder,
                                     const SweepHooks& hooks);

}  // namespace vx3260
