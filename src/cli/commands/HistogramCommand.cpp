// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/HistogramCommand.h"

#include <CLI/CLI.hpp>
#include <optional>
#include <vector>

#include "analysis/ConversionConditions.h"
#include "analysis/PlotCsv.h"
#include "cli/reports/HistogramReport.h"
#include "link/CodeBlock.h"

namespace vx3260 {
namespace {

/// Two always suffice; the maximum is one for each code of the aux ADC.
constexpr int minBins = 2;
constexpr int maxBinsAllowed = 65536;

/// Lines of a terminal.
constexpr std::size_t maxBars = 20;

}  // namespace

HistogramCommand::HistogramCommand(CLI::App& program)
    : Command(program, "histogram", "How often the codes of a data file occur") {
    AddConverter(Parser(), converter_);
    AddFileOptions(
        Parser(), file_,
        AddFile(Parser(), file_, "Data file to count the codes of, or - for standard input")
            ->required());
    AddWholeNumber(Parser(), "--bins", maxBins_,
                   "Into how many bins at most; each is 1, 2, 5, 10, 20, 50 ... codes wide")
        ->check(CLI::Range(minBins, maxBinsAllowed))
        ->default_str(std::to_string(maxBars) + ", " + std::to_string(MaxHistogramBins) +
                      " for csv");
    AddFormat(Parser(), format_, {ReportFormat::Csv});
}

ExitCode HistogramCommand::Run(const CommandContext& context) {
    return RunOnFile(context, file_,
                     [this, &context] { context.streams.out << Report(context.streams); });
}

std::string HistogramCommand::Report(const CliStreams& streams) const {
    const ParsedCodes block = LoadBlock(file_, streams.err);
    const std::optional<BlockConditions> reading =
        LoadConditionsOf(file_, converter_, block, streams.err);
    // A histogram needs no volts, only the step of the codes.
    const std::optional<ConversionConditions> own = reading ? ConditionsOf(*reading) : std::nullopt;
    const int step = own ? own->codeStep : 1;
    CheckWarnings(
        file_, block, converter_, streams.err,
        {.codeStep = step, .missed = reading ? reading->missedConversions.value_or(0) : 0});
    const std::vector<double> codes = ToDoubles(block.codes);
    const bool csv = format_ == ReportFormat::Csv;
    const std::size_t fitting = csv ? MaxHistogramBins : maxBars;
    const FileHistogram counted{
        .file = file_.Name(),
        .converter = converter_,
        .figures = ComputeNormalFigures(codes, step),
        .histogram = ComputeHistogram(
            codes, maxBins_ == 0 ? fitting : static_cast<std::size_t>(maxBins_), step),
    };
    return csv ? HistogramCsv(counted.histogram, counted.figures.normal, codes.size())
               : HistogramText(counted, streams.outWidth);
}

}  // namespace vx3260
