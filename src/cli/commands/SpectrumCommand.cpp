// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/SpectrumCommand.h"

#include <CLI/CLI.hpp>
#include <limits>
#include <vector>

#include "cli/reports/SpectrumReport.h"
#include "link/CodeBlock.h"

namespace vx3260 {
namespace {

/// A single reading has no spectrum.
constexpr int minSegment = 2;

constexpr NamedChoice<Trend> trends[] = {{"mean", Trend::Mean}, {"linear", Trend::Linear}};

}  // namespace

SpectrumCommand::SpectrumCommand(CLI::App& program)
    : Command(program, "spectrum", "Spectral density of the noise of a data file") {
    AddConverter(Parser(), converter_);
    file_.AddTo(Parser(), "Data file to analyse, or - for standard input")->required();
    file_.AddReferenceTo(Parser());
    file_.AddRateTo(Parser());
    AddWholeNumber(Parser(), "--segment", segment_,
                   "Readings in each of the segments that are averaged; a power of two is fast")
        ->check(CLI::Range(minSegment, std::numeric_limits<std::int32_t>::max()))
        ->default_str("a power of two that gives 8 segments or more");
    AddChoice(Parser(), "--trend", trend_, trends, "What is removed from each segment");
    AddFormat(Parser(), format_, {ReportFormat::Csv, ReportFormat::Json});
}

ExitCode SpectrumCommand::Run(const CommandContext& context) {
    return RunOnFile(context, file_.File(),
                     [this, &context] { context.streams.out << Report(context.streams.err); });
}

std::size_t SpectrumCommand::SegmentFor(std::size_t readings) const {
    const auto segment = static_cast<std::size_t>(segment_);
    if (segment > readings) {
        throw CommandError(ExitCode::WrongCommandLine, "--segment: " + file_.File().Name() +
                                                           " has only " + std::to_string(readings) +
                                                           " codes");
    }
    return segment == 0 ? DefaultSegmentLength(readings) : segment;
}

std::string SpectrumCommand::Report(std::ostream& err) const {
    const FileBlock block = file_.Load(err);
    const FileSpectrum analysed{
        .file = file_.File().Name(),
        .conditions = block.conditions,
        .count = block.codes.size(),
        .trend = trend_,
        .spectrum = ComputeSpectrum(ToDoubles(block.codes), KnownRate(block),
                                    SegmentFor(block.codes.size()), trend_),
        .warnings = block.warnings,
        .reading = block.reading,
    };
    switch (format_) {
        case ReportFormat::Csv:
            return SpectrumCsv(analysed);
        case ReportFormat::Json:
            return SpectrumJson(analysed);
        default:
            return SpectrumText(analysed);
    }
}

}  // namespace vx3260
