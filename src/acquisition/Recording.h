// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "app/Services.h"
#include "link/BlockConditions.h"
#include "link/Configuration.h"
#include "link/Converter.h"

namespace vx3260 {

/// When something was recorded.
struct RecordingMoment {
    UtcTime utc;     ///< by RecordingPlan::clock, else the start and, from there on, the board's
    double elapsed;  ///< seconds by the board's clock since the recording was begun
};

struct RecordedCode {
    Converter converter;
    std::int32_t code;
};

/// What is recorded, and until when.
struct RecordingPlan {
    std::vector<Converter> converters{Converter::Main};  ///< one, or both with the main one first
    std::optional<double> duration{};                    ///< seconds by the board's clock
    std::optional<std::int64_t> count{};                 ///< conversions
    bool resetOnTimeout = false;
    UtcTime start{};
    /// The system's time, which is asked about once a second. Empty for a simulated board, whose
    /// clock is faster.
    std::function<UtcTime()> clock{};
    double elapsedBefore = 0;  ///< of a recording that is continued, in seconds
};

/// How far a recording is.
struct RecordingProgress {
    RecordingMoment moment;
    double passedUntil = 0;  ///< elapsed seconds; no conversion before is still to be passed on
    std::int64_t conversions = 0;
    std::int64_t missed = 0;    ///< conversions not read, by gaps and the filter's update rate
    std::int64_t timeOuts = 0;  ///< attempts to read that failed
    bool failing = false;       ///< the last attempt to read failed
};

struct RecordingHooks {
    /// The codes of one conversion, in the order of the plan's converters. Called one conversion
    /// late: until the next answer, a code may be one that a board in disappearing left.
    std::function<void(const RecordingMoment&, std::span<const RecordedCode>)> conversion{};
    /// Once for each change: that readings fail, for another reason, that they succeed again, and
    /// that the system's clock was set.
    std::function<void(const RecordingMoment&, const std::string&)> report{};
    /// Called after each attempt to read.
    std::function<void(const RecordingProgress&)> afterEach{};
    /// Waits, at most until a stop is requested. Where the board's clock has not moved on as far
    /// afterwards, as a simulated one, the recording's time has.
    std::function<void(std::chrono::milliseconds)> pause{};
    std::function<bool()> stopRequested{};
};

enum class RecordingEnd { Complete, Stopped };

/// Records conversions of a chip in continuous conversion until the plan's end or a stop.
/// `settings` are what ReadConfiguration returned.
///
/// After a time-out the word that the chip still waits for is clocked out and the registers are
/// compared with `settings`; on request a software reset comes first and the settings are written
/// again. While this fails, it is tried again after pauses of 1, 2, 4 ... 60 s, the last one
/// until the end of the duration: no code is recorded with other settings than those.
RecordingEnd Record(Services& services, const RecordingPlan& plan, const Configuration& settings,
                    const RecordingHooks& hooks);

}  // namespace vx3260
