// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/RecordingSession.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "acquisition/ConditionsRecorder.h"
#include "analysis/ReadingTexts.h"
#include "app/ApplicationInfo.h"
#include "link/RegisterLookup.h"
#include "numbers/NumberText.h"

namespace vx3260 {

RecordingSession::RecordingSession(Services& services, RecordingRequest request)
    : services_(services), request_(std::move(request)), file_(request_.Place()) {}

std::int64_t RecordingSession::Begin() {
    settings_ = ReadConfiguration(services_.port, services_.state.PortAddress);
    MakePlan();
    ReadSettings();
    const std::int64_t cut = file_.Begin(Head(), writer_->Columns(), GapText());
    shownPath_ = file_.Path();
    return cut;
}

/// A recording that is continued goes on counting its seconds.
void RecordingSession::MakePlan() {
    plan_ = {.converters = request_.converters,
             .duration = request_.duration,
             .count = request_.count,
             .resetOnTimeout = request_.resetOnTimeout,
             .start = PresentTime()};
    if (services_.boardLabel.empty()) {
        plan_.clock = PresentTime;
    }
    if (const std::optional<RecordedMoment>& last = file_.LastMoment()) {
        const std::chrono::duration<double> gap = plan_.start - last->utc;
        // The clock is behind the last line after a simulated board, which is faster.
        const double atLeast = request_.every ? EndOfInterval(last->elapsed) - last->elapsed : 0;
        plan_.elapsedBefore = last->elapsed + (gap.count() > 0 ? gap.count() : atLeast);
    }
}

void RecordingSession::ReadSettings() {
    std::optional<float> slope;
    const RegisterSnapshot snapshot = SnapshotOf(settings_);
    conditions_.clear();
    for (const Converter converter : request_.converters) {
        const std::int32_t control = snapshot.ValueOf(TraitsOf(converter).control).value();
        conditions_.push_back(ConditionsOf(converter, request_.referenceVoltage, control));
        if (converter == Converter::Aux &&
            (control & RegisterMap::AuxChannelMask) == RegisterMap::TemperatureSensor) {
            slope = services_.state.TemperatureSlope;
        }
    }
    writer_.emplace(file_, RecordingLines(conditions_, slope), request_.every, request_.rotation,
                    plan_);
}

/// The head's comments: how the codes of each converter are read.
std::vector<std::string> RecordingSession::Head() const {
    std::vector<std::string> head{std::string(TitleAndVersion),
                                  "begun " + IsoTimeText(plan_.start)};
    for (const Converter converter : request_.converters) {
        std::vector<std::string> lines =
            ReadingLines(ConditionsRecorder(services_, converter)
                             .End(ReadingEnd::Complete, request_.referenceVoltage));
        // The outcome, the last thing in the last line, is not known yet.
        lines.back().resize(lines.back().rfind(", "));
        for (const std::string& line : lines) {
            head.push_back(std::string(TraitsOf(converter).name) + " ADC: " + line);
        }
    }
    return head;
}

double RecordingSession::EndOfInterval(double elapsed) const {
    return (std::floor(elapsed / *request_.every) + 1) * *request_.every;
}

/// The line of an interval begins with the start of it.
std::optional<UtcTime> RecordingSession::EndOfLastLine() const {
    const std::optional<RecordedMoment>& last = file_.LastMoment();
    if (!last) {
        return {};
    }
    if (!request_.every) {
        return last->utc;
    }
    const std::chrono::duration<double> length(EndOfInterval(last->elapsed) - last->elapsed);
    return std::min(last->utc + std::chrono::round<std::chrono::milliseconds>(length),
                    std::max(last->utc, plan_.start));
}

std::string RecordingSession::GapText() const {
    const std::optional<UtcTime> end = EndOfLastLine();
    return "continued at " + IsoTimeText(plan_.start) + (end ? " after " + IsoTimeText(*end) : "");
}

RecordingEnd RecordingSession::Run(const SessionHooks& hooks) {
    const RecordingEnd end =
        Record(services_, plan_, settings_,
               {.conversion =
                    [&](const RecordingMoment& moment, std::span<const RecordedCode> codes) {
                        writer_->Add(moment, codes);
                        if (hooks.conversion) {
                            hooks.conversion(moment, codes);
                        }
                    },
                .report =
                    [&](const RecordingMoment& moment, const std::string& text) {
                        writer_->Advance(moment.elapsed);
                        file_.Comment(IsoTimeText(moment.utc) + " " + text);
                        if (hooks.report) {
                            hooks.report(moment, text);
                        }
                    },
                .afterEach =
                    [&](const RecordingProgress& now) {
                        progress_ = now;
                        writer_->Advance(now.passedUntil);
                        Care(hooks);
                        if (hooks.afterEach) {
                            hooks.afterEach(now);
                        }
                    },
                .pause = [&](std::chrono::milliseconds length) { Pause(hooks, length); },
                .stopRequested = hooks.stopRequested});
    writer_->Finish();
    return end;
}

void RecordingSession::Care(const SessionHooks& hooks) {
    file_.Tick();
    if (hooks.newFileRequested && hooks.newFileRequested()) {
        file_.BeginNext();
    }
    if (file_.Path() != shownPath_) {
        shownPath_ = file_.Path();
        if (hooks.newFile) {
            hooks.newFile();
        }
    }
}

/// A simulated board's time does not take as long.
void RecordingSession::Pause(const SessionHooks& hooks, std::chrono::milliseconds length) {
    constexpr std::chrono::milliseconds slice{20};
    const std::chrono::milliseconds left = services_.boardLabel.empty() ? length : slice;
    const auto begin = std::chrono::steady_clock::now();
    const auto end = begin + left;
    const auto stopped = [&hooks] { return hooks.stopRequested && hooks.stopRequested(); };
    while (hooks.wait && !stopped() && std::chrono::steady_clock::now() < end) {
        hooks.wait(slice);
        const std::chrono::duration<double> paused = std::chrono::steady_clock::now() - begin;
        writer_->Advance(progress_.passedUntil + paused.count());
        Care(hooks);
    }
}

std::string RecordingSession::Summary() const {
    const auto elapsed = static_cast<std::int64_t>(progress_.moment.elapsed);
    return CountText(file_.Lines(), "line") + ", " + DurationText(std::chrono::seconds(elapsed)) +
           ", " + CountText(progress_.missed, "missed conversion") +
           (progress_.timeOuts > 0 ? ", " + CountText(progress_.timeOuts, "time-out") : "") +
           (progress_.failing ? ", readings fail" : "");
}

const ConversionConditions& RecordingSession::Conditions(Converter converter) const {
    return *std::find_if(
        conditions_.begin(), conditions_.end(),
        [converter](const ConversionConditions& each) { return each.converter == converter; });
}

}  // namespace vx3260
