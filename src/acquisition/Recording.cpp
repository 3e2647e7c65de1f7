// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/Recording.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "acquisition/ConverterReader.h"
#include "link/FilterRate.h"
#include "link/RegisterLookup.h"
#include "link/Reset.h"
#include "link/Serial.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr std::chrono::seconds firstPause{1};
constexpr std::chrono::seconds longestPause{60};

/// A gap of more conversions than this between two readings is one with missed conversions.
constexpr double longestGap = 1.5;

constexpr std::string_view noAnswer = "the board does not answer";

constexpr double clockSeconds = 1;
constexpr std::chrono::seconds maxClockChange{1};

struct HeldConversion {
    RecordingMoment moment;
    std::vector<RecordedCode> codes;
};

class RecordingRun {
  public:
    RecordingRun(Services& services, const RecordingPlan& plan, const Configuration& settings,
                 const RecordingHooks& hooks);

    RecordingEnd Run();

  private:
    RecordingMoment Now() const;
    double ElapsedInRun() const { return Now().elapsed - plan_.elapsedBefore; }
    bool StopRequested() const { return hooks_.stopRequested && hooks_.stopRequested(); }
    bool AtEnd() const;
    void FollowClock();
    bool ReadConversion();
    void Accept(std::int32_t code);
    void CountMissed(double elapsed);
    std::int64_t MissedSoFar() const;
    void PassHeld();
    std::string SettingsThatDiffer() const;
    std::string Recover();
    std::chrono::milliseconds PauseLength() const;
    void Pause();
    void ReportTimeOut(const std::string& reason);
    void ReportReadingsAgain();
    void DiscardHeld();
    void HandleTimeOut();
    void AfterEach();
    void Report(const RecordingMoment& moment, const std::string& text);

    Services& services_;
    const RecordingPlan& plan_;
    const Configuration& settings_;
    const RecordingHooks& hooks_;
    ConverterReader reader_;
    std::chrono::nanoseconds start_;
    std::chrono::nanoseconds skipped_{};       ///< in pauses, beyond the board's clock
    std::chrono::milliseconds clockOffset_{};  ///< of the system's clock since the start
    double nextClock_ = 0;                     ///< elapsed seconds when it is asked again
    std::optional<double> interval_;           ///< seconds of a conversion
    RecordingProgress progress_;
    std::optional<HeldConversion> held_;
    std::int64_t missed_ = 0;            ///< until the last conversion
    std::optional<double> lastElapsed_;  ///< of the conversion before
    std::optional<RecordingMoment> failingSince_;
    std::string reason_;         ///< why conversions fail, as reported
    std::int64_t failures_ = 0;  ///< time-outs since then
    std::chrono::seconds nextPause_ = firstPause;
};

RecordingRun::RecordingRun(Services& services, const RecordingPlan& plan,
                           const Configuration& settings, const RecordingHooks& hooks)
    : services_(services),
      plan_(plan),
      settings_(settings),
      hooks_(hooks),
      reader_(services.port, services.state.PortAddress, plan.converters.front()),
      start_(services.port.Now()) {
    const std::optional<std::int32_t> word = SnapshotOf(settings).ValueOf(RegisterMap::Filter);
    if (word && *word > 0) {
        interval_ = 1 / UpdateRateOf(*word);
    }
}

RecordingMoment RecordingRun::Now() const {
    const std::chrono::nanoseconds sinceStart = services_.port.Now() - start_ + skipped_;
    return {plan_.start + clockOffset_ + std::chrono::floor<std::chrono::milliseconds>(sinceStart),
            plan_.elapsedBefore + std::chrono::duration<double>(sinceStart).count()};
}

/// The board's clock stands still while the computer sleeps, and goes on when the time is set.
void RecordingRun::FollowClock() {
    const RecordingMoment now = Now();
    if (!plan_.clock || now.elapsed < nextClock_) {
        return;
    }
    nextClock_ = now.elapsed + clockSeconds;
    const std::chrono::milliseconds change = plan_.clock() - now.utc;
    clockOffset_ += change;
    if (std::chrono::abs(change) > maxClockChange) {
        const double seconds = std::chrono::duration<double>(std::chrono::abs(change)).count();
        Report(Now(), "the system's clock went " + std::string(change.count() > 0 ? "on" : "back") +
                          " by " + FixedText(seconds, 3) + " s; the recording's seconds did not");
    }
}

bool RecordingRun::AtEnd() const {
    return (plan_.count && progress_.conversions >= *plan_.count) ||
           (plan_.duration && ElapsedInRun() >= *plan_.duration);
}

/// A time-out of the other converter leaves the interface out of step for this one as well.
bool RecordingRun::ReadConversion() {
    const std::int32_t code = reader_.ReadCode();
    if (code == ReadTimeout || reader_.CodeAlongside() == ReadTimeout) {
        return false;
    }
    Accept(code);
    return true;
}

/// A conversion that ends after the recording's end is not part of it.
void RecordingRun::Accept(std::int32_t code) {
    if (AtEnd()) {
        return;
    }
    PassHeld();
    FollowClock();
    held_.emplace(HeldConversion{Now(), {{plan_.converters.front(), code}}});
    if (plan_.converters.size() > 1) {
        held_->codes.push_back({plan_.converters.back(), reader_.CodeAlongside()});
    }
    ++progress_.conversions;
    CountMissed(held_->moment.elapsed);
}

void RecordingRun::CountMissed(double elapsed) {
    if (lastElapsed_ && interval_) {
        const double conversions = (elapsed - *lastElapsed_) / *interval_;
        missed_ += conversions > longestGap ? std::llround(conversions) - 1 : 0;
    }
    lastElapsed_ = elapsed;
}

/// With those of an outage that lasts.
std::int64_t RecordingRun::MissedSoFar() const {
    if (!failingSince_ || !interval_) {
        return missed_;
    }
    return missed_ + std::llround(std::floor((Now().elapsed - *lastElapsed_) / *interval_));
}

void RecordingRun::PassHeld() {
    if (held_) {
        hooks_.conversion(held_->moment, held_->codes);
        held_.reset();
    }
}

/// Why the settings are not those that the recording began with; empty where they are.
std::string RecordingRun::SettingsThatDiffer() const {
    std::string names;
    std::size_t count = 0;
    const Configuration present = ReadConfiguration(services_.port, services_.state.PortAddress);
    for (std::size_t i = 0; i < present.size(); ++i) {
        const auto& [description, wanted, bits] = settings_[i];
        if (((wanted ^ present[i].value) & bits & ComparableBits(description, wanted)) != 0) {
            names += (names.empty() ? "" : ", ") + std::string(description.name);
            ++count;
        }
    }
    if (count == present.size()) {
        return std::string(noAnswer);
    }
    return names.empty() ? "" : "these registers do not hold the settings any more: " + names;
}

/// Returns why no conversion can be recorded; empty where one can.
std::string RecordingRun::Recover() {
    reader_.CompleteWord();
    if (plan_.resetOnTimeout) {
        SoftwareReset(services_.port, services_.state.PortAddress);
        RestoreConfiguration(services_.port, services_.state.PortAddress, settings_);
    }
    return SettingsThatDiffer();
}

void RecordingRun::Report(const RecordingMoment& moment, const std::string& text) {
    if (hooks_.report) {
        hooks_.report(moment, text);
    }
}

/// The last pause ends with the recording.
std::chrono::milliseconds RecordingRun::PauseLength() const {
    if (!plan_.duration) {
        return nextPause_;
    }
    const std::chrono::duration<double> left(*plan_.duration - ElapsedInRun());
    return std::clamp(std::chrono::ceil<std::chrono::milliseconds>(left),
                      std::chrono::milliseconds(0), std::chrono::milliseconds(nextPause_));
}

void RecordingRun::Pause() {
    const std::chrono::milliseconds length = PauseLength();
    const std::chrono::nanoseconds end = services_.port.Now() + length;
    if (hooks_.pause) {
        hooks_.pause(length);
    }
    if (!StopRequested()) {
        skipped_ += std::max(std::chrono::nanoseconds(0), end - services_.port.Now());
    }
    nextPause_ = std::min(nextPause_ * 2, longestPause);
}

void RecordingRun::DiscardHeld() {
    if (held_) {
        --progress_.conversions;
        ++missed_;
        held_.reset();
    }
}

void RecordingRun::ReportTimeOut(const std::string& reason) {
    if (failingSince_) {
        if (reason != reason_) {
            Report(Now(), "still no readings: " + (reason.empty() ? "no data-ready" : reason));
        }
    } else {
        if (reason.empty()) {
            PassHeld();
        }
        failingSince_ = Now();
        lastElapsed_ = lastElapsed_.value_or(plan_.elapsedBefore);
        Report(*failingSince_, "time-out: no data-ready" + (reason.empty() ? "" : "; " + reason) +
                                   (held_ ? "; the last code was discarded" : "") +
                                   "; trying again");
        DiscardHeld();
    }
    reason_ = reason;
}

void RecordingRun::ReportReadingsAgain() {
    const RecordingMoment moment = held_ ? held_->moment : Now();
    const double seconds = moment.elapsed - failingSince_->elapsed;
    failingSince_.reset();
    Report(moment,
           "readings again after " + CountText(failures_, "time-out") + ", " +
               FixedText(seconds, 1) + " s" +
               (plan_.resetOnTimeout ? "; the chip was reset and its settings restored" : ""));
    failures_ = 0;
    nextPause_ = firstPause;
}

/// Returns when another conversion can be read, or the recording ends.
void RecordingRun::HandleTimeOut() {
    std::string reason = Recover();
    for (;;) {
        ++progress_.timeOuts;
        ++failures_;
        ReportTimeOut(reason);
        AfterEach();
        Pause();
        if (reason.empty() || AtEnd() || StopRequested()) {
            return;
        }
        reason = Recover();
        if (reason.empty()) {
            return;
        }
    }
}

void RecordingRun::AfterEach() {
    if (!held_) {
        FollowClock();
    }
    progress_.moment = Now();
    progress_.passedUntil = held_ ? held_->moment.elapsed : progress_.moment.elapsed;
    progress_.missed = MissedSoFar();
    progress_.failing = failingSince_.has_value();
    if (hooks_.afterEach) {
        hooks_.afterEach(progress_);
    }
}

RecordingEnd RecordingRun::Run() {
    reader_.ReadControls();
    while (!AtEnd() && !StopRequested()) {
        if (!ReadConversion()) {
            HandleTimeOut();
            continue;
        }
        if (failingSince_) {
            ReportReadingsAgain();
        }
        AfterEach();
    }
    const bool stopped = !AtEnd();
    if (const std::string reason = held_ ? SettingsThatDiffer() : ""; !reason.empty()) {
        DiscardHeld();
        if (reason == noAnswer) {
            failingSince_ = Now();
        }
        Report(Now(), reason + "; the last code was discarded");
    }
    PassHeld();
    AfterEach();
    return stopped ? RecordingEnd::Stopped : RecordingEnd::Complete;
}

}  // namespace

RecordingEnd Record(Services& services, const RecordingPlan& plan, const Configuration& settings,
                    const RecordingHooks& hooks) {
    return RecordingRun(services, plan, settings, hooks).Run();
}

}  // namespace vx3260
