// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/RecordCommand.h"

#include <CLI/CLI.hpp>
#include <string>
#include <thread>

#include "cli/board/BlockReading.h"
#include "cli/board/ProgressLine.h"
#include "cli/board/StopSignal.h"
#include "cli/board/StuckReadyLine.h"
#include "numbers/FilePath.h"
#include "numbers/NumberText.h"
#include "options/Quantities.h"
#include "options/Validators.h"

namespace vx3260 {
namespace {

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
        if (number >= (size ? MinRotationBytes : MinRotationSeconds) &&
            number <= (size ? MaxRotationBytes : MaxRecordingSeconds)) {
            return "";
        }
        return "'" + text + "' is not from " +
               (size ? "1 kB to 1000 TB, such as 100MB" : "1 s to 100 years, such as 1h");
    } catch (const CLI::Error& error) {
        return "'" + text + "': " + error.what();
    }
}

/// Seconds, from a time with or without a unit.
CLI::Validator RecordingTime() {
    return {[](std::string& text) -> std::string {
                const std::string given = text;
                double seconds = 0;
                if (AsSeconds()(text).empty() && CLI::detail::lexical_cast(text, seconds) &&
                    seconds >= MinRecordingSeconds && seconds <= MaxRecordingSeconds) {
                    return "";
                }
                return "'" + given + "' is not a time from 0.01s to 100 years, such as 90s, 15m, " +
                       "12h or 2d";
            },
            ""};
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

}  // namespace

RecordCommand::RecordCommand(CLI::App& program)
    : Command(program, "record", "Record conversions into CSV files, for a night or a minute") {
    AddWord(
        Parser(), "converter", {"main", "aux", "both"}, "",
        [this](const std::string& name) {
            request_.converters =
                name == "both" ? std::vector{Converter::Main, Converter::Aux}
                               : std::vector{name == "main" ? Converter::Main : Converter::Aux};
        },
        "Which converter")
        ->required();
    AddEnd();
    AddFiles();
    AddReference(Parser(), request_.referenceVoltage);
    Parser().add_flag("--reset-on-timeout", request_.resetOnTimeout,
                      "After a time-out reset the chip by software, write its settings again and "
                      "verify them");
}

void RecordCommand::AddEnd() {
    Parser()
        .add_option("--duration", request_.duration,
                    "How long, such as 90s, 15m, 12h or 2d; without it and --count until Ctrl+C")
        ->type_name("TIME")
        ->transform(RecordingTime());
    static_cast<void>(Parser()
                          .add_option("--count", request_.count, "How many conversions")
                          ->type_name("N")
                          ->check(CLI::Range(std::int64_t{1}, MaxRecordingCount).description("")));
    Parser()
        .add_option("--every", request_.every,
                    "Write count, mean, sigma, minimum and maximum of each such interval in place "
                    "of each code")
        ->type_name("TIME")
        ->transform(RecordingTime());
}

void RecordCommand::AddFiles() {
    Parser()
        .add_option("-o,--output", request_.path, "File to write")
        ->type_name("FILE")
        ->check(FileName())
        ->required();
    Parser()
        .add_option_function<std::string>(
            "--rotate",
            [this](const std::string& text) {
                if (IsSize(text)) {
                    request_.rotation.bytes = static_cast<std::int64_t>(RotationNumber(text));
                } else {
                    request_.rotation.seconds = RotationNumber(text);
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

/// Without a wanted end, Ctrl+C is the normal one. A board that is gone at the end is not a
/// success, whatever was recorded before.
ExitCode RecordCommand::ExitCodeFor(RecordingEnd end, const RecordingProgress& progress) const {
    if (progress.conversions == 0 || progress.failing) {
        return ExitCode::NoAnswer;
    }
    const bool wantedEnd = request_.duration || request_.count;
    return end == RecordingEnd::Stopped && wantedEnd ? ExitCode::Interrupted : ExitCode::Success;
}

ExitCode RecordCommand::Run(const CommandContext& context) {
    std::ostream& err = context.streams.err;
    const std::string& trace = context.board.Choice().traceFile;
    for (const std::string& path : {request_.path, request_.Place().FirstPath()}) {
        if (!trace.empty() && SameFile(trace, path)) {
            throw CommandError(ExitCode::WrongCommandLine,
                               "--output and --trace name the same file: " + path);
        }
    }
    request_.start = append_  ? RecordingStart::Append
                     : force_ ? RecordingStart::Replace
                              : RecordingStart::New;
    Services& services = context.board.Services();
    RecordingSession session(services, request_);
    CheckBoard(services, request_.converters, err);
    StopSignal stop(HangUp::NewFile);
    if (const std::int64_t cut = session.Begin(); cut > 0) {
        err << "Cut off a torn last line of " << CountText(cut, "byte") << std::endl;
    }
    const RecordingFile& file = session.File();
    err << "Recording into " << file.Path() << ", Ctrl+C stops" << std::endl;
    ProgressLine progressLine(err, 0, context.streams.errWidth);
    const auto say = [&](const std::string& text) {
        progressLine.Clear();
        err << text << std::endl;
    };
    const RecordingEnd end = session.Run(
        {.report = [&](const RecordingMoment&, const std::string& text) { say(text); },
         .newFile = [&] { say("Recording into " + file.Path()); },
         .afterEach =
             [&](const RecordingProgress&) {
                 progressLine.Show([&] { return session.Summary(); });
             },
         .wait = [](std::chrono::milliseconds slice) { std::this_thread::sleep_for(slice); },
         .stopRequested = [&] { return stop.Requested(); },
         .newFileRequested = [&] { return stop.NewFileRequested(); }});
    say("Wrote " + session.Summary() + ", to " + file.Path());
    return ExitCodeFor(end, session.Progress());
}

}  // namespace vx3260
