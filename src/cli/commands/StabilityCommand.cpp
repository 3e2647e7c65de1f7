// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/StabilityCommand.h"

#include <CLI/CLI.hpp>

#include "cli/reports/StabilityReport.h"
#include "link/CodeBlock.h"

namespace vx3260 {
namespace {

constexpr NamedChoice<AveragingFactors> factors[] = {{"octave", AveragingFactors::Octave},
                                                     {"decade", AveragingFactors::Decade},
                                                     {"all", AveragingFactors::All}};

}  // namespace

StabilityCommand::StabilityCommand(CLI::App& program)
    : Command(program, "stability", "Allan deviation of a data file over averaging time") {
    AddConverter(Parser(), converter_);
    file_.AddTo(Parser(), "Data file to analyse, or - for standard input")->required();
    file_.AddReferenceTo(Parser());
    file_.AddRateTo(Parser());
    AddChoice(Parser(), "--taus", factors_, factors,
              "How many readings are averaged: 1, 2, 4, 8 ...; 1, 2, 4, 10, 20, 40, 100 ...; or "
              "each number up to half of the block");
    AddFormat(Parser(), format_, {ReportFormat::Csv, ReportFormat::Json});
}

ExitCode StabilityCommand::Run(const CommandContext& context) {
    return RunOnFile(context, file_.File(),
                     [this, &context] { context.streams.out << Report(context.streams.err); });
}

std::string StabilityCommand::Report(std::ostream& err) const {
    const FileBlock block = file_.Load(err);
    const FileStability analysed{
        .file = file_.File().Name(),
        .conditions = block.conditions,
        .count = block.codes.size(),
        .rate = KnownRate(block),
        .points = AllanDeviation(ToDoubles(block.codes), factors_),
        .warnings = block.warnings,
        .reading = block.reading,
    };
    switch (format_) {
        case ReportFormat::Csv:
            return StabilityCsv(analysed);
        case ReportFormat::Json:
            return StabilityJson(analysed);
        default:
            return StabilityText(analysed);
    }
}

}  // namespace vx3260
