// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/HistogramCommand.h"

#include <CLI/CLI.hpp>
#include <vector>

#include "analysis/PlotCsv.h"
#include "cli/board/BlockReading.h"
#include "cli/commands/BlockFile.h"
#include "cli/reports/HistogramReport.h"
#include "link/CodeBlock.h"
#include "options/Validators.h"

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
    Parser()
        .add_option("FILE", file_, "Data file to count the codes of")
        ->required()
        ->check(NotEmpty());
    AddHex(Parser(), notation_, "FILE is in hexadecimal");
    AddWholeNumber(Parser(), "--bins", maxBins_,
                   "Into how many bins at most; each is 1, 2, 5, 10, 20, 50 ... codes wide")
        ->check(CLI::Range(minBins, maxBinsAllowed))
        ->default_str(std::to_string(maxBars) + ", " + std::to_string(MaxHistogramBins) +
                      " for csv");
    AddFormat(Parser(), format_, ReportFormat::Csv);
}

ExitCode HistogramCommand::Run(const CommandContext& context) {
    OpenForStatus(context);
    const std::vector<std::int32_t> block = LoadBlock(file_, notation_, context.streams.err);
    WarnOfSuspiciousCodes(block, converter_, context.streams.err);
    const std::vector<double> codes = ToDoubles(block);
    const bool csv = format_ == ReportFormat::Csv;
    const std::size_t fitting = csv ? MaxHistogramBins : maxBars;
    const FileHistogram counted{
        .file = file_,
        .converter = converter_,
        .count = codes.size(),
        .statistics = ComputeExactStatistics(codes),
        .histogram =
            ComputeHistogram(codes, maxBins_ == 0 ? fitting : static_cast<std::size_t>(maxBins_)),
    };
    context.streams.out << (csv ? HistogramCsv(counted.histogram, counted.statistics, counted.count)
                                : HistogramText(counted, context.streams.outWidth));
    return ExitCode::Success;
}

}  // namespace vx3260
