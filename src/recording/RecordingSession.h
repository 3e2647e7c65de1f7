// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "acquisition/Recording.h"
#include "analysis/ConversionConditions.h"
#include "app/StartUp.h"
#include "files/RecordingFile.h"
#include "recording/RecordingWriter.h"

/// A recording from the plan to the files, for the command and the form alike.
namespace vx3260 {

/// Limits of durations, intervals and rotations.
inline constexpr double MinRecordingSeconds = 0.01;
inline constexpr double MaxRecordingSeconds = 100.0 * 365 * 24 * 3600;
inline constexpr double MinRotationSeconds = 1;
inline constexpr double MinRotationBytes = 1000;
inline constexpr double MaxRotationBytes = 1e15;
inline constexpr std::int64_t MaxRecordingCount = std::int64_t{1} << 53U;

/// What is recorded, until when and where to.
struct RecordingRequest {
    std::vector<Converter> converters{Converter::Main};  ///< one, or both with the main one first
    std::optional<double> duration{};                    ///< seconds
    std::optional<std::int64_t> count{};                 ///< conversions
    std::optional<double> every{};                       ///< seconds; empty for each code
    RotationRule rotation{};
    std::string path{};
    RecordingStart start = RecordingStart::New;
    bool resetOnTimeout = false;
    float referenceVoltage = DefaultReferenceVoltage;  ///< volts

    RecordingPlace Place() const { return {path, rotation.seconds || rotation.bytes, start}; }
};

struct SessionHooks {
    /// Called one conversion late, as RecordingHooks::conversion.
    std::function<void(const RecordingMoment&, std::span<const RecordedCode>)> conversion{};
    /// What happened, once it is in the file: time-outs and their end.
    std::function<void(const RecordingMoment&, const std::string&)> report{};
    /// A new file has been begun, RecordingFile::Path.
    std::function<void()> newFile{};
    /// Called after each attempt to read.
    std::function<void(const RecordingProgress&)> afterEach{};
    /// Waits about that long, some hundredths of a second, in a pause between attempts.
    std::function<void(std::chrono::milliseconds)> wait{};
    std::function<bool()> stopRequested{};
    /// Whether a new file has been requested since the last call.
    std::function<bool()> newFileRequested{};
};

class RecordingSession {
  public:
    /// Throws as RecordingFile does, before anything is read or written.
    RecordingSession(Services& services, RecordingRequest request);

    /// Reads all registers, which are the settings of the recording, and begins the file. The chip
    /// is in continuous conversion, the converters are enabled. Returns as RecordingFile::Begin.
    std::int64_t Begin();

    /// After Begin. Returns at the request's end or a stop, with the file closed. Throws
    /// FileAccessError when the disk fails; what was written before stays.
    RecordingEnd Run(const SessionHooks& hooks);

    const RecordingFile& File() const { return file_; }
    const RecordingProgress& Progress() const { return progress_; }

    /// "1890 lines, 0:18, 0 missed conversions", with the time-outs where there were any, and that
    /// readings fail where they do.
    std::string Summary() const;

    /// How the codes of a converter are turned into volts; after Begin.
    const ConversionConditions& Conditions(Converter converter) const;

  private:
    void MakePlan();
    void ReadSettings();
    std::vector<std::string> Head() const;
    double EndOfInterval(double elapsed) const;
    std::optional<UtcTime> EndOfLastLine() const;
    std::string GapText() const;
    void Care(const SessionHooks& hooks);
    void Pause(const SessionHooks& hooks, std::chrono::milliseconds length);

    Services& services_;
    RecordingRequest request_;
    RecordingFile file_;
    RecordingPlan plan_;
    Configuration settings_;
    std::vector<ConversionConditions> conditions_;
    std::optional<RecordingWriter> writer_;
    RecordingProgress progress_;
    std::string shownPath_;  ///< the file that is known to the hooks
};

}  // namespace vx3260
