// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/RecordCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <thread>

#include "acquisition/ConditionsRecorder.h"
#include "acquisition/RecordingIntervals.h"
#include "acquisition/RecordingLines.h"
#include "analysis/ReadingTexts.h"
#include "app/ApplicationInfo.h"
#include "cli/board/BlockReading.h"
#include "cli/board/ProgressLine.h"
#include "cli/board/StopSignal.h"
#include "cli/board/StuckReadyLine.h"
#include "link/RegisterLookup.h"
#include "numbers/FilePath.h"
#include "numbers/NumberText.h"
#include "options/Quantities.h"
#include "options/Validators.h"

namespace vx3260 {
namespace {

constexpr double longestTime = 100.0 * 365 * 24 * 3600;  // seconds
constexpr double shortestInterval = 0.01;
constexpr double shortestRotation = 1;
constexpr double smallestRotation = 1000;  // bytes

/// A rotation's limit is a size where it ends in the letter of bytes.
bool IsSize(const std::string& text) {
    return !text.empty() && UpperCase(text.back()) == 'B';
}

double RotationNumber(std::string text) {
    const CLI::Validator units = IsSize(text) ? AsBytes() : AsSeconds();
    const std::string error = units(text);
    double number = 0;
    if (!error.empty() || !CLI::detail::lexical_cast(text, number)) {
        throw CLI::ValidationError("'" + text + "' is not a time or a size");
    }
    return number;
}

std::string RefuseRotation(std::string& text) {
    try {
        const double number = RotationNumber(text);
        const bool size = IsSize(text);
        if (number >= (size ? smallestRotation : shortestRotation) &&
            number <= longestTime * 1000) {
            return "";
        }
        return "'" + text + "' is less than " + (size ? "1 kB" : "1 s") + " or too much";
    } catch (const CLI::Error& error) {
        return "'" + text + "': " + error.what();
    }
}

/// Writes what the engine records.
class Recorder {
  public:
    Recorder(RecordingFile& file, RecordingLines lines, std::optional<double> every,
             const RotationRule& rotation, Converter first)
        : file_(file), lines_(std::move(lines)), rotation_(rotation), first_(first) {
        if (every) {
            intervals_.emplace(*every, [this](const auto& start, Converter converter,
                                              const IntervalFigures& figures) {
                Write(start, converter, lines_.Line(start, converter, figures));
            });
        }
    }

    std::string Columns() const {
        return intervals_ ? lines_.IntervalColumns() : lines_.CodeColumns();
    }

    void Add(const RecordingMoment& moment, std::span<const RecordedCode> codes) {
        if (intervals_) {
            intervals_->Add(moment, codes);
            return;
        }
        for (const RecordedCode& code : codes) {
            Write(moment, code.converter, lines_.Line(moment, code));
        }
    }

    void Finish() {
        if (intervals_) {
            intervals_->Finish();
        }
        file_.Close();
    }

  private:
    double PeriodOf(double elapsed) const { return std::floor(elapsed / *rotation_.seconds); }

    bool IsFull(double elapsed) const {
        return (rotation_.seconds && period_ && PeriodOf(elapsed) != *period_) ||
               (rotation_.bytes && file_.Bytes() >= *rotation_.bytes);
    }

    /// The converters' lines of one moment stay in one file.
    void Write(const RecordingMoment& moment, Converter converter, const std::string& line) {
        if (converter == first_) {
            if (IsFull(moment.elapsed)) {
                file_.BeginNext();
            }
            if (rotation_.seconds) {
                period_ = PeriodOf(moment.elapsed);
            }
        }
        file_.Line(line);
    }

    RecordingFile& file_;
    RecordingLines lines_;
    RotationRule rotation_;
    Converter first_;
    std::optional<RecordingIntervals> intervals_;
    std::optional<double> period_;  ///< of the last line
};

/// The head's comments: how the codes of each converter are read.
std::vector<std::string> HeadOf(const Services& services, const RecordingPlan& plan,
                                float referenceVoltage) {
    std::vector<std::string> head{std::string(TitleAndVersion), "begun " + IsoTimeText(plan.start)};
    for (const Converter converter : plan.converters) {
        std::vector<std::string> lines = ReadingLines(
            ConditionsRecorder(services, converter).End(ReadingEnd::Complete, referenceVoltage));
        // The outcome, the last thing in the last line, is not known yet.
        lines.back().resize(lines.back().rfind(", "));
        for (const std::string& line : lines) {
            head.push_back(std::string(TraitsOf(converter).name) + " ADC: " + line);
        }
    }
    return head;
}

RecordingLines LinesFor(const Services& services, const Configuration& settings,
                        const std::vector<Converter>& recorded, float referenceVoltage) {
    std::vector<ConversionConditions> conditions;
    std::optional<float> slope;
    const RegisterSnapshot snapshot = SnapshotOf(settings);
    for (const Converter converter : recorded) {
        const std::int32_t control = snapshot.ValueOf(TraitsOf(converter).control).value();
        conditions.push_back(ConditionsOf(converter, referenceVoltage, control));
        if (converter == Converter::Aux &&
            (control & RegisterMap::AuxChannelMask) == RegisterMap::TemperatureSensor) {
            slope = services.state.TemperatureSlope;
        }
    }
    return {conditions, slope};
}

void CheckBoard(Services& services, const std::vector<Converter>& recorded, std::ostream& err) {
    EnsureContinuousConversion(services, err);
    ConverterReader reader(services.port, services.state.PortAddress, recorded.front());
    reader.ReadControls();
    for (const Converter converter : recorded) {
        RequireEnabled(services, reader, converter);
    }
    CheckReadyLine(services);
}

std::string GapText(const RecordingPlan& plan, const RecordingFile& file) {
    return file.LastMoment() ? "continued at " + IsoTimeText(plan.start) + " after " +
                                   IsoTimeText(file.LastMoment()->utc)
                             : "continued at " + IsoTimeText(plan.start);
}

/// A simulated board's time does not take as long.
void Pause(const Services& services, std::chrono::milliseconds length,
           const std::function<bool()>& stop) {
    constexpr std::chrono::milliseconds slice{20};
    const std::chrono::milliseconds left = services.boardLabel.empty() ? length : slice;
    const auto end = std::chrono::steady_clock::now() + left;
    while (!stop() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(slice);
    }
}

std::string ProgressOf(const RecordingProgress& progress, const RecordingFile& file) {
    const auto elapsed = static_cast<std::int64_t>(progress.moment.elapsed);
    return CountText(file.Lines(), "line") + ", " + DurationText(std::chrono::seconds(elapsed)) +
           ", " + CountText(progress.missed, "missed conversion") +
           (progress.timeOuts > 0 ? ", " + CountText(progress.timeOuts, "time-out") : "");
}

}  // namespace

RecordCommand::RecordCommand(CLI::App& program)
    : Command(program, "record", "Record conversions into CSV files, for a night or a minute") {
    AddWord(
        Parser(), "converter", {"main", "aux", "both"}, "",
        [this](const std::string& name) {
            converters_ = name == "both"
                              ? std::vector{Converter::Main, Converter::Aux}
                              : std::vector{name == "main" ? Converter::Main : Converter::Aux};
        },
        "Which converter")
        ->required();
    AddEnd();
    AddFiles();
    AddReference(Parser(), referenceVoltage_);
    Parser().add_flag("--reset-on-timeout", resetOnTimeout_,
                      "After a time-out reset the chip by software, write its settings again and "
                      "verify them");
}

void RecordCommand::AddEnd() {
    Parser()
        .add_option("--duration", duration_, "How long; without it and --count until Ctrl+C")
        ->type_name("TIME")
        ->transform(AsSeconds().description("such as 90s, 15m, 12h, 2d"))
        ->check(CLI::Range(shortestInterval, longestTime).description(""));
    static_cast<void>(
        Parser()
            .add_option("--count", count_, "How many conversions")
            ->type_name("N")
            ->check(CLI::Range(std::int64_t{1}, std::int64_t{1} << 53U).description("")));
    Parser()
        .add_option("--every", every_,
                    "Write count, mean, sigma, minimum and maximum of each such interval in place "
                    "of each code")
        ->type_name("TIME")
        ->transform(AsSeconds().description(""))
        ->check(CLI::Range(shortestInterval, longestTime).description(""));
}

void RecordCommand::AddFiles() {
    Parser()
        .add_option("-o,--output", output_, "File to write")
        ->type_name("FILE")
        ->check(NotEmpty())
        ->required();
    Parser()
        .add_option_function<std::string>(
            "--rotate",
            [this](const std::string& text) {
                if (IsSize(text)) {
                    rotation_.bytes = static_cast<std::int64_t>(RotationNumber(text));
                } else {
                    rotation_.seconds = RotationNumber(text);
                }
            },
            "Begin a new file after this time or size, such as 1h or 100MB: FILE-001, FILE-002 ...")
        ->type_name("TIME|SIZE")
        ->check(CLI::Validator(RefuseRotation, ""));
    CLI::Option* const append =
        Parser().add_flag("--append", append_, "Continue the recording in the file");
    Parser().add_flag("--force", force_, "Replace existing files")->excludes(append);
    Parser().footer(
        "Signals: Ctrl+C and SIGTERM end the recording, SIGHUP begins a new file. Time-outs are "
        "noted\nin the file and tried again, after pauses of 1, 2, 4 ... 60 s.");
}

/// A recording that is continued goes on counting its seconds.
RecordingPlan RecordCommand::PlanFrom(const RecordingFile& file) const {
    RecordingPlan plan{.converters = converters_,
                       .duration = duration_,
                       .count = count_,
                       .resetOnTimeout = resetOnTimeout_,
                       .start = PresentTime()};
    if (const std::optional<RecordedMoment>& last = file.LastMoment()) {
        const std::chrono::duration<double> gap = plan.start - last->utc;
        plan.elapsedBefore = last->elapsed + std::max(0.0, gap.count());
    }
    return plan;
}

/// Without a wanted end, Ctrl+C is the normal one.
ExitCode RecordCommand::ExitCodeFor(RecordingEnd end, const RecordingProgress& progress) const {
    if (progress.conversions == 0) {
        return ExitCode::NoAnswer;
    }
    const bool wantedEnd = duration_ || count_;
    return end == RecordingEnd::Stopped && wantedEnd ? ExitCode::Interrupted : ExitCode::Success;
}

ExitCode RecordCommand::Run(const CommandContext& context) {
    std::ostream& err = context.streams.err;
    const std::string& trace = context.board.Choice().traceFile;
    if (!trace.empty() && SameFile(trace, output_)) {
        throw CommandError(ExitCode::WrongCommandLine,
                           "--output and --trace name the same file: " + output_);
    }
    RecordingFile file({.path = output_,
                        .numbered = rotation_.seconds || rotation_.bytes,
                        .start = append_  ? RecordingStart::Append
                                 : force_ ? RecordingStart::Replace
                                          : RecordingStart::New});
    Services& services = context.board.Services();
    CheckBoard(services, converters_, err);
    const Configuration settings = ReadConfiguration(services.port, services.state.PortAddress);
    const RecordingPlan plan = PlanFrom(file);
    Recorder recorder(file, LinesFor(services, settings, converters_, referenceVoltage_), every_,
                      rotation_, converters_.front());
    StopSignal stop(HangUp::NewFile);
    const std::int64_t cut = file.Begin(HeadOf(services, plan, referenceVoltage_),
                                        recorder.Columns(), GapText(plan, file));
    if (cut > 0) {
        err << "Cut off a torn last line of " << CountText(cut, "byte") << std::endl;
    }
    err << "Recording into " << file.Path() << ", Ctrl+C stops" << std::endl;
    ProgressLine progressLine(err, 0, context.streams.errWidth);
    const auto say = [&](const std::string& text) {
        progressLine.Clear();
        err << text << std::endl;
    };
    const auto care = [&] {
        file.Tick();
        if (stop.NewFileRequested()) {
            file.BeginNext();
            say("Recording into " + file.Path());
        }
    };
    RecordingProgress progress;
    const RecordingEnd end =
        Record(services, plan, settings,
               {.conversion = [&](const auto& moment, auto codes) { recorder.Add(moment, codes); },
                .report =
                    [&](const auto& moment, const std::string& text) {
                        file.Comment(IsoTimeText(moment.utc) + " " + text);
                        say(text);
                    },
                .afterEach =
                    [&](const RecordingProgress& now) {
                        progress = now;
                        care();
                        progressLine.Show([&] { return ProgressOf(now, file); });
                    },
                .pause =
                    [&](std::chrono::seconds length) {
                        Pause(services, length, [&] {
                            care();
                            return stop.Requested();
                        });
                    },
                .stopRequested = [&] { return stop.Requested(); }});
    recorder.Finish();
    say("Wrote " + ProgressOf(progress, file) + ", to " + file.Path());
    return ExitCodeFor(end, progress);
}

}  // namespace vx3260
