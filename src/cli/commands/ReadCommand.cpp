// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/ReadCommand.h"

#include <CLI/CLI.hpp>
#include <vector>

#include "cli/board/StopSignal.h"
#include "cli/commands/TextOutput.h"
#include "cli/reports/BlockReport.h"
#include "files/ConditionsFile.h"
#include "link/CodeBlock.h"
#include "numbers/FilePath.h"
#include "numbers/NumberText.h"
#include "options/Validators.h"

namespace vx3260 {
namespace {

void RefuseTraceAsOutput(const std::string& trace, const std::string& output) {
    if (!trace.empty() && !output.empty() && SameFile(trace, output)) {
        throw CommandError(ExitCode::WrongCommandLine,
                           "--output and --trace name the same file: " + output);
    }
}

/// Returns where the text is. A file may have appeared during a reading of minutes.
std::string Save(const std::string& text, ReadingEnd end, bool force, CodeWriter& writer,
                 std::ostream& err) {
    const bool complete = end == ReadingEnd::Complete;
    if (complete && (force || !writer.WouldReplace())) {
        writer.Write(text);
        return writer.Name();
    }
    std::string place = writer.WriteIncomplete(text);
    if (place != writer.Name()) {
        err << (complete ? "A file has appeared there: " : "The reading did not complete: ")
            << writer.Name() << " stays as it was" << std::endl;
    }
    return place;
}

/// The codes are there already, so a failure is reported with them in place.
void SaveConditions(const BlockReading& reading, const std::string& place, std::ostream& err) {
    const std::string path = ConditionsPath(place);
    ReplaceFile(path, FormatConditions(reading.conditions, reading.codes));
    err << "Wrote the conditions of the reading to " << path << std::endl;
}

}  // namespace

ReadCommand::ReadCommand(CLI::App& program)
    : Command(program, "read",
              "Read a block of codes into a data file, one code a line, or with times and volts") {
    AddConverter(Parser(), converter_);
    AddCount(Parser(), count_)->check(CLI::Range(1, static_cast<int>(MaxCodesInBlock)));
    CLI::Option* const output =
        Parser()
            .add_option("-o,--output", output_, "File to write, in place of standard output")
            ->type_name("FILE")
            ->check(FileName());
    Parser()
        .add_flag("--force", force_, "Replace an existing file by a complete reading")
        ->needs(output);
    Parser()
        .add_flag("--no-conditions", noConditions_,
                  "Write no FILE.json with the conditions of the reading beside FILE")
        ->needs(output);
    AddFormatOptions();
}

/// A plain data file has codes and nothing else; the other formats have decimal ones, and volts.
void ReadCommand::AddFormatOptions() {
    AddFormat(Parser(), format_, {ReportFormat::Csv, ReportFormat::Json})
        ->description("Codes alone, as a data file has them, or with their times and volts");
    const CLI::Option* const hex = AddHex(Parser(), notation_, "Write the codes in hexadecimal");
    const CLI::Option* const reference = AddReference(Parser(), referenceVoltage_);
    Parser().final_callback([this, hex, reference] {
        const bool text = format_ == ReportFormat::Text;
        if (!text && !hex->empty()) {
            throw CLI::ExcludesError("--format csv or json", hex->get_name());
        }
        if (text && output_.empty() && !reference->empty()) {
            throw CLI::RequiresError(reference->get_name(), "--output or --format csv or json");
        }
    });
}

bool ReadCommand::WritesConditions(const CodeWriter& writer) const {
    return format_ == ReportFormat::Text && !noConditions_ && writer.IsFile();
}

void ReadCommand::RefuseToReplace(const CodeWriter& writer) const {
    if (force_) {
        return;
    }
    if (writer.WouldReplace()) {
        RefuseToReplaceFile(writer.Name());
    }
    const std::string conditions = ConditionsPath(writer.Name());
    if (WritesConditions(writer) && FileExists(conditions)) {
        RefuseToReplaceFile(conditions);
    }
}

std::string ReadCommand::TextOf(const BlockReading& reading, std::span<const BlockWarning> warnings,
                                std::string_view board) const {
    if (format_ == ReportFormat::Text) {
        return FormatCodes(reading.codes, notation_);
    }
    const ReadBlockReport report{.board = board,
                                 .conversion = ConditionsOf(reading.conditions).value(),
                                 .conditions = reading.conditions,
                                 .codes = reading.codes,
                                 .warnings = warnings};
    return format_ == ReportFormat::Csv ? BlockCsv(report) : BlockJson(report);
}

ExitCode ReadCommand::Run(const CommandContext& context) {
    RefuseTraceAsOutput(context.board.Choice().traceFile, output_);
    CodeWriter writer(output_, context.streams.out);
    RefuseToReplace(writer);
    Services& services = context.board.Services();
    // The trace is there now, so that a link to it is seen too.
    RefuseTraceAsOutput(context.board.Choice().traceFile, output_);
    EnsureContinuousConversion(services, context.streams.err);
    // Until the codes are saved, a signal must not end the process.
    const StopSignal stop;
    const BlockReading reading =
        ReadCodes(services, context.streams,
                  {converter_, static_cast<std::int16_t>(count_), referenceVoltage_},
                  [&stop] { return stop.Requested(); });
    const ReadingEnd end = reading.conditions.outcome;
    const std::vector<BlockWarning> warnings =
        WarningsAbout(ToDoubles(reading.codes), reading.conditions, reading.overRange);
    PrintWarnings(TextsOf(warnings), context.streams.err);
    if (reading.codes.empty()) {
        context.streams.err << "Nothing was written to " << writer.Name() << std::endl;
        return ExitCodeOf(end, stop.Requested());
    }
    const std::string place = Save(TextOf(reading, warnings, services.boardLabel), end, force_,
                                   writer, context.streams.err);
    context.streams.err << "Wrote "
                        << CountText(static_cast<std::int64_t>(reading.codes.size()), "code")
                        << " to " << place << std::endl;
    if (WritesConditions(writer)) {
        SaveConditions(reading, place, context.streams.err);
    }
    return ExitCodeOf(end, stop.Requested());
}

}  // namespace vx3260
