// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/HistogramReport.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "link/RegisterLookup.h"
#include "numbers/Columns.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr std::string_view gap = "  ";
constexpr std::string_view meanMark = "> ";
constexpr std::string_view codeHeading = "First Code";
constexpr std::string_view countHeading = "Count";
constexpr std::size_t minBarWidth = 10;

/// A character of a bar is filled in eighths, from the left.
constexpr std::size_t eighths = 8;
constexpr std::string_view fullBlock = "█";
constexpr std::string_view blocks[eighths] = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};

/// A single code stays visible, however small its share is.
std::string Bar(std::size_t count, std::size_t maxCount, std::size_t width) {
    const std::size_t share = (count * width * eighths + maxCount / 2) / maxCount;
    const std::size_t length = count > 0 ? std::max<std::size_t>(share, 1) : 0;
    std::string bar;
    for (std::size_t i = 0; i < length / eighths; ++i) {
        bar += fullBlock;
    }
    return bar + std::string(blocks[length % eighths]);
}

/// Empty for a code outside the converter's range.
std::string HexCode(std::int64_t code, Converter converter) {
    return code < 0 || code > LargestCodeOf(converter)
               ? ""
               : RegisterHex(static_cast<std::int32_t>(code), TraitsOf(converter).data);
}

/// Widths of the columns, in characters.
struct Columns {
    std::size_t code;
    std::size_t hex;
    std::size_t count;
    std::size_t bar;
    std::size_t maxCount;  ///< the count whose bar fills its column
};

std::string Label(const Columns& columns, std::string_view mark, std::string_view code,
                  std::string_view hex, std::string_view count) {
    return Padded(mark, meanMark.size()) + RightAligned(code, columns.code) + std::string(gap) +
           Padded(hex, columns.hex) + std::string(gap) + RightAligned(count, columns.count);
}

std::size_t DecimalWidth(const Histogram& histogram) {
    return std::max(std::to_string(histogram.firstCode).size(),
                    std::to_string(histogram.FirstCodeOf(histogram.counts.size() - 1)).size());
}

Columns ColumnsFor(const FileHistogram& counted, std::size_t width) {
    const Histogram& histogram = counted.histogram;
    const std::size_t maxCount =
        *std::max_element(histogram.counts.begin(), histogram.counts.end());
    Columns columns{
        .code = std::max(codeHeading.size(), DecimalWidth(histogram)),
        .hex = HexCode(0, counted.converter).size(),
        .count = std::max(countHeading.size(), std::to_string(maxCount).size()),
        .bar = minBarWidth,
        .maxCount = maxCount,
    };
    const std::size_t before = Label(columns, "", "", "", "").size() + gap.size();
    columns.bar = std::max(minBarWidth, width - std::min(width, before));
    return columns;
}

/// The bin of the result that is nearest to the mean.
std::size_t MeanBin(const FileHistogram& counted) {
    const Histogram& histogram = counted.histogram;
    const std::int64_t nearest =
        std::llround(counted.figures.exact.mean / histogram.step) * histogram.step;
    return static_cast<std::size_t>((nearest - histogram.firstCode) / histogram.binWidth);
}

std::string Line(const FileHistogram& counted, const Columns& columns, std::size_t bin) {
    const std::int64_t code = counted.histogram.FirstCodeOf(bin);
    const std::size_t count = counted.histogram.counts[bin];
    const std::string bar = Bar(count, columns.maxCount, columns.bar);
    return Label(columns, bin == MeanBin(counted) ? meanMark : "", std::to_string(code),
                 HexCode(code, counted.converter), std::to_string(count)) +
           (bar.empty() ? "" : std::string(gap) + bar) + "\n";
}

std::string Heading(const FileHistogram& counted) {
    const NormalTexts texts = TextsOf(counted.figures);
    return std::string(TraitsOf(counted.converter).name) + " ADC Histogram\n" +
           CaptionedLines({
               {"File", counted.file},
               {"Codes Read", std::to_string(counted.figures.readings)},
               {"Bin Width",
                CountText(counted.histogram.binWidth / counted.histogram.step, "code")},
               {"Mean Code", texts.mean + ", marked >"},
               {"Sigma", texts.sigma},
               {"Skewness", texts.skewness},
               {"Exc. Kurtosis", texts.excessKurtosis},
               {"Normality", texts.normality},
           });
}

}  // namespace

std::string HistogramText(const FileHistogram& counted, std::size_t width) {
    const Columns columns = ColumnsFor(counted, width);
    std::string text =
        Heading(counted) + "\n" + Label(columns, "", codeHeading, "", countHeading) + "\n";
    for (std::size_t bin = 0; bin < counted.histogram.counts.size(); ++bin) {
        text += Line(counted, columns, bin);
    }
    return text;
}

}  // namespace vx3260
