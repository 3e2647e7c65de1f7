#include "cli/HistogramCommand.h"

#include <vector>

#include "cli/BlockFile.h"
#include "cli/BlockReading.h"
#include "cli/HistogramReport.h"

namespace vx3260 {
namespace {

/// The least that always do, and one for each code of the aux ADC.
constexpr int leastBins = 2;
constexpr int mostBins = 65536;

}  // namespace

HistogramCommand::HistogramCommand(CLI::App& program)
    : Command(program, "histogram", "How often the codes of a data file occur") {
    AddConverter(Parser(), converter_);
    Parser().add_option("FILE", file_, "Data file to count the codes of")->required();
    AddHex(Parser(), notation_, "FILE is in hexadecimal");
    AddWholeNumber(Parser(), "--bins", mostBins_,
                   "Into how many bins at most; each is 1, 2, 5, 10, 20, 50 ... codes wide")
        ->check(CLI::Range(leastBins, mostBins));
    AddFormat(Parser(), format_, ReportFormat::Csv);
}

ExitCode HistogramCommand::Run(const CommandContext& context) {
    OpenForStatus(context);
    const std::vector<std::int32_t> block = LoadBlock(file_, notation_);
    WarnOfSuspiciousCodes(block, converter_, context.streams.err);
    const std::vector<double> codes(block.begin(), block.end());
    const FileHistogram counted{
        .file = file_,
        .converter = converter_,
        .count = codes.size(),
        .statistics = ComputeExactStatistics(codes),
        .histogram = ComputeHistogram(codes, static_cast<std::size_t>(mostBins_)),
    };
    context.streams.out << (format_ == ReportFormat::Csv
                                ? HistogramCsv(counted)
                                : HistogramText(counted, context.streams.outWidth));
    return ExitCode::Success;
}

}  // namespace vx3260
