// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reports/HistogramReport.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "cli/reports/Columns.h"
#include "cli/reports/RegisterText.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr std::string_view gap = "  ";
constexpr std::string_view meanMark = "> ";

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

/// The lines of the bins.
class Bars {
  public:
    Bars(const FileHistogram& counted, std::size_t width)
        : counted_(counted),
          codeWidth_(std::max(codeHeading.size(), DecimalWidth())),
          hexWidth_(HexCode(0, counted.converter).size()),
          maxCount_(*std::max_element(counts_.begin(), counts_.end())),
          countWidth_(std::max(countHeading.size(), std::to_string(maxCount_).size())) {
        const std::size_t before = Label("", "", "", "").size() + gap.size();
        barWidth_ = std::max(minBarWidth, width - std::min(width, before));
    }

    std::string Heading() const { return Label("", codeHeading, "", countHeading) + "\n"; }

    std::string Line(std::size_t bin) const {
        const std::int64_t code = counted_.histogram.FirstCodeOf(bin);
        const std::string bar = Bar(counts_[bin], maxCount_, barWidth_);
        return Label(bin == MeanBin() ? meanMark : "", std::to_string(code),
                     HexCode(code, counted_.converter), std::to_string(counts_[bin])) +
               (bar.empty() ? "" : std::string(gap) + bar) + "\n";
    }

  private:
    static constexpr std::size_t minBarWidth = 10;
    static constexpr std::string_view codeHeading = "First Code";
    static constexpr std::string_view countHeading = "Count";

    std::size_t DecimalWidth() const {
        const Histogram& histogram = counted_.histogram;
        return std::max(std::to_string(histogram.firstCode).size(),
                        std::to_string(histogram.FirstCodeOf(counts_.size() - 1)).size());
    }

    std::size_t MeanBin() const {
        const Histogram& histogram = counted_.histogram;
        const auto mean = static_cast<std::int64_t>(std::llround(counted_.statistics.mean));
        return static_cast<std::size_t>((mean - histogram.firstCode) / histogram.binWidth);
    }

    std::string Label(std::string_view mark, std::string_view code, std::string_view hex,
                      std::string_view count) const {
        return Padded(mark, meanMark.size()) + RightAligned(code, codeWidth_) + std::string(gap) +
               Padded(hex, hexWidth_) + std::string(gap) + RightAligned(count, countWidth_);
    }

    const FileHistogram& counted_;
    const std::vector<std::size_t>& counts_ = counted_.histogram.counts;
    std::size_t codeWidth_;
    std::size_t hexWidth_;
    std::size_t maxCount_;
    std::size_t countWidth_;
    std::size_t barWidth_;
};

std::string Heading(const FileHistogram& counted) {
    const std::pair<std::string_view, std::string> rows[] = {
        {"File", counted.file},
        {"Codes Read", std::to_string(counted.count)},
        {"Bin Width", CountText(counted.histogram.binWidth, "code")},
        {"Mean", FixedText(counted.statistics.mean, 3) + ", marked >"},
        {"Sigma", SignificantText(counted.statistics.sigma, 6)},
    };
    std::string heading = std::string(TraitsOf(counted.converter).name) + " ADC Histogram\n";
    for (const auto& [caption, text] : rows) {
        heading += "  " + Padded(caption, 12) + text + "\n";
    }
    return heading;
}

}  // namespace

std::string HistogramText(const FileHistogram& counted, std::size_t width) {
    const Bars bars(counted, width);
    std::string text = Heading(counted) + "\n" + bars.Heading();
    for (std::size_t bin = 0; bin < counted.histogram.counts.size(); ++bin) {
        text += bars.Line(bin);
    }
    return text;
}

}  // namespace vx3260
