// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/ReadCommand.h"

#include <CLI/CLI.hpp>

#include "analysis/SuspiciousCodes.h"
#include "cli/board/BlockReading.h"
#include "cli/board/StopSignal.h"
#include "files/CodeFile.h"
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

/// Returns where the codes are.
std::string Save(const BlockReading& reading, Notation notation, CodeWriter& writer,
                 std::ostream& err) {
    if (reading.end == ReadingEnd::Complete) {
        writer.Write(reading.codes, notation);
        return writer.Name();
    }
    std::string place = writer.WriteIncomplete(reading.codes, notation);
    if (place != writer.Name()) {
        err << "The reading did not complete: " << writer.Name() << " stays as it was" << std::endl;
    }
    return place;
}

}  // namespace

ReadCommand::ReadCommand(CLI::App& program)
    : Command(program, "read", "Read a block of codes into a data file, one code a line") {
    AddConverter(Parser(), converter_);
    AddCount(Parser(), count_)->check(CLI::Range(1, static_cast<int>(MaxCodesInBlock)));
    Parser()
        .add_option("-o,--output", output_, "Data file to write, in place of standard output")
        ->type_name("FILE")
        ->check(NotEmpty());
    AddHex(Parser(), notation_, "Write the codes in hexadecimal");
}

ExitCode ReadCommand::Run(const CommandContext& context) {
    RefuseTraceAsOutput(context.board.Choice().traceFile, output_);
    CodeWriter writer(output_, context.streams.out);
    Services& services = context.board.Services();
    // The trace is there now, so that a link to it is seen too.
    RefuseTraceAsOutput(context.board.Choice().traceFile, output_);
    EnsureContinuousConversion(services, context.streams.err);
    // Until the codes are saved, a signal must not end the process.
    const StopSignal stop;
    const BlockReading reading =
        ReadCodes(services, context.streams, converter_, static_cast<std::int16_t>(count_),
                  [&stop] { return stop.Requested(); });
    PrintWarnings(SuspicionsAbout(reading.codes, converter_), context.streams.err);
    if (reading.codes.empty()) {
        context.streams.err << "Nothing was written to " << writer.Name() << std::endl;
        return ExitCodeOf(reading.end, stop.Requested());
    }
    const std::string place = Save(reading, notation_, writer, context.streams.err);
    context.streams.err << "Wrote "
                        << CountText(static_cast<std::int64_t>(reading.codes.size()), "code")
                        << " to " << place << std::endl;
    return ExitCodeOf(reading.end, stop.Requested());
}

}  // namespace vx3260
