// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "analysis/BlockWarnings.h"
#include "analysis/NoiseAnalysis.h"
#include "app/Services.h"
#include "link/BlockConditions.h"
#include "link/Configuration.h"
#include "link/Converter.h"

namespace vx3260 {

/// Results that are dropped after a change of settings. Each write of the filter or of a control
/// register starts the conversion anew, and a digital filter of third order needs three results to
/// settle; the fourth is a reserve for the input.
inline constexpr int DefaultSettle = 4;

/// Which settings are measured, and how.
struct CharacterisationPlan {
    Converter converter = Converter::Main;
    std::vector<std::int32_t> ranges{};       ///< codes of ScaleField
    std::vector<std::int32_t> filterWords{};  ///< 13 to 255
    std::vector<Polarity> polarities{};
    std::int32_t channel = 0;    ///< code of the converter's channel field
    std::int16_t count = 1000;   ///< codes of a setting, from 10 on
    int settle = DefaultSettle;  ///< results dropped before them
    bool calibrate = false;      ///< internal zero-scale and full-scale calibration before them
    float referenceVoltage = 2.5F;

    bool operator==(const CharacterisationPlan&) const = default;
};

/// The field that chooses the size of the input: the main ADC's range, the aux ADC's reference.
const RegisterMap::Field& ScaleField(Converter converter);
const RegisterMap::Field& ChannelField(Converter converter);

/// One cell of the tables.
struct CharacterisedSetting {
    Polarity polarity;
    std::int32_t filterWord;
    std::int32_t range;

    bool operator==(const CharacterisedSetting&) const = default;
};

/// All of a plan's settings: for each polarity each word, for each word each range.
std::vector<CharacterisedSetting> SettingsOf(const CharacterisationPlan& plan);

/// How long a setting takes by the nominal rates: settling, readings and calibrations.
std::chrono::duration<double> DurationOf(const CharacterisationPlan& plan,
                                         const CharacterisedSetting& setting);

/// What was measured at one setting.
struct CharacterisedBlock {
    CharacterisedSetting setting;
    std::string failure{};  ///< why there is no analysis; empty where there is one
    std::vector<std::int32_t> codes{};
    BlockConditions conditions{};
    std::optional<NoiseAnalysis> analysis{};
    std::vector<BlockWarning> warnings{};
};

struct CharacterisationHooks {
    std::function<void(const CharacterisedSetting&)> starting{};
    std::function<void(int codes)> afterEach{};  ///< with the codes of this setting so far
    std::function<void(const CharacterisedBlock&)> finished{};
    std::function<bool()> stopRequested{};
    /// Called at the end in any case, also before an exception of another hook leaves: which
    /// registers do not hold what they held before.
    std::function<void(const std::vector<RegisterMismatch>&)> restored{};
};

enum class CharacterisationEnd {
    Complete,
    Stopped,
    NoBoard  ///< the board does not answer any more
};

/// Measures the settings one after the other: power-down, filter word, scale, polarity and channel,
/// each write verified; calibrations; continuous conversion; the readings. A setting that fails is
/// a block with the reason. Restores all registers at the end.
/// Throws UnsteadyRegisters before the first access that writes.
CharacterisationEnd Characterise(Services& services, const CharacterisationPlan& plan,
                                 std::span<const CharacterisedSetting> settings,
                                 const CharacterisationHooks& hooks);

}  // namespace vx3260
