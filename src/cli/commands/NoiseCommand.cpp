// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/NoiseCommand.h"

#include <CLI/CLI.hpp>
#include <span>
#include <vector>

#include "analysis/SuspiciousCodes.h"
#include "app/MessageTexts.h"
#include "cli/board/BlockReading.h"
#include "cli/board/StopSignal.h"
#include "cli/reports/NoiseReport.h"
#include "link/CodeBlock.h"
#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

void CheckCount(std::int64_t count) {
    if (!CountFitsAnalysis(count)) {
        throw CommandError(ExitCode::CountRefused,
                           std::string(MessageTexts::CountRefusal) + " (" + std::to_string(count) +
                               " given; accepted are " + std::to_string(MinCodesForAnalysis) +
                               " to " + std::to_string(MaxCodesForAnalysis) + ")");
    }
}

NoiseAnalysis Analyse(std::span<const std::int32_t> codes, const ConversionConditions& conditions) {
    return AnalyseNoise(ToDoubles(codes), conditions);
}

}  // namespace

NoiseCommand::NoiseCommand(CLI::App& program)
    : Command(program, "noise", "Noise figures of a data file, or of a block read now") {
    AddConverter(Parser(), converter_);
    CLI::Option* const file = file_.AddTo(
        Parser(), "Data file to analyse, or - for standard input; without it, codes are read");
    AddCount(Parser(), count_)->excludes(file);
    file_.AddReferenceTo(Parser());
    AddFormat(Parser(), format_, {ReportFormat::Json});
}

ExitCode NoiseCommand::Run(const CommandContext& context) {
    if (!file_.IsGiven()) {
        return RunOnBoard(context);
    }
    return RunOnFile(context, file_.File(),
                     [this, &context] { context.streams.out << FileReport(context.streams.err); });
}

std::string NoiseCommand::FileReport(std::ostream& err) const {
    const FileBlock block =
        file_.Load(err, [](std::size_t count) { CheckCount(static_cast<std::int64_t>(count)); });
    try {
        return Report({Analyse(block.codes, block.conditions), block.reading, ""});
    } catch (const RuntimeError& error) {
        throw BadDataError(file_.File().Name() + ": the codes cannot be analysed: " + error.what());
    }
}

ExitCode NoiseCommand::RunOnBoard(const CommandContext& context) const {
    CheckCount(count_);
    Services& services = context.board.Services();
    EnsureContinuousConversion(services, context.streams.err);
    const StopSignal stop;
    const BlockReading reading =
        ReadCodes(services, context.streams,
                  {converter_, static_cast<std::int16_t>(count_), file_.ReferenceVoltage()},
                  [&stop] { return stop.Requested(); });
    const ExitCode exitCode = ExitCodeOf(reading.conditions.outcome, stop.Requested());
    if (!CountFitsAnalysis(static_cast<std::int64_t>(reading.codes.size()))) {
        context.streams.err << "Too few codes to analyse" << std::endl;
        return exitCode;
    }
    PrintWarnings(SuspicionsAbout(reading.codes, converter_), context.streams.err);
    context.streams.out << Report({Analyse(reading.codes, ConditionsOf(reading.conditions).value()),
                                   reading.conditions, services.boardLabel});
    return exitCode;
}

std::string NoiseCommand::Report(const NoiseReportContents& contents) const {
    return format_ == ReportFormat::Json ? NoiseJson(contents) : NoiseText(contents);
}

}  // namespace vx3260
