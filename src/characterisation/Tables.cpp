// SPDX-License-Identifier: GPL-3.0-or-later
#include "characterisation/Tables.h"

#include <algorithm>
#include <functional>

#include "link/FilterRate.h"
#include "numbers/Columns.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr double microvoltsPerVolt = 1e6;
constexpr int noiseDigits = 3;
constexpr int bitsDecimals = 1;
constexpr int rateDecimals = 2;

std::string BitsText(const RowBits& bits) {
    return (bits.isLowerBound ? "≥ " : "") + FixedText(bits.bits, bitsDecimals);
}

std::string NoiseText(double volts) {
    return SignificantText(volts * microvoltsPerVolt, noiseDigits);
}

std::string RmsCell(const CharacterisationRow& row) {
    return row.rmsVolts && row.peakToPeakVolts
               ? NoiseText(*row.rmsVolts) + " (" + NoiseText(*row.peakToPeakVolts) + ")"
               : "-";
}

std::string ResolutionCell(const CharacterisationRow& row) {
    return row.effective && row.noiseFree
               ? BitsText(*row.effective) + " (" + BitsText(*row.noiseFree) + ")"
               : "-";
}

std::string RemarksOn(const CharacterisationRow& row) {
    std::string remarks = row.failure;
    if (row.effective && row.effective->isLowerBound) {
        remarks = LowerBoundRemark;
    }
    for (const std::string& text : row.warningTexts) {
        remarks += (remarks.empty() ? "" : "\n") + text;
    }
    return remarks;
}

using CellText = std::string (*)(const CharacterisationRow&);

TableCell CellOf(const CharacterisationRow* row, CellText text) {
    if (row == nullptr) {
        return {};
    }
    return {.text = row->failure.empty() ? text(*row) : "failed",
            .remarks = RemarksOn(*row),
            .rank = row->effective ? std::optional(RankOf(*row->effective)) : std::nullopt};
}

NoiseTable TableOf(const CharacterisationResults& results, Polarity polarity,
                   const std::string& title, CellText text) {
    const CharacterisationPlan& plan = results.plan;
    NoiseTable table{.title = title + ", " + PolarityName(polarity)};
    for (const std::int32_t range : plan.ranges) {
        table.ranges.push_back(RangeName(plan.converter, range));
    }
    for (const std::int32_t word : plan.filterWords) {
        TableLine line{.word = std::to_string(word),
                       .rate = FixedText(UpdateRateOf(word), rateDecimals)};
        for (const std::int32_t range : plan.ranges) {
            line.cells.push_back(CellOf(results.RowAt({polarity, word, range}), text));
        }
        table.lines.push_back(std::move(line));
    }
    return table;
}

std::string TextOf(const NoiseTable& table) {
    std::vector<std::string> heading{"Word", "Rate (Hz)"};
    heading.insert(heading.end(), table.ranges.begin(), table.ranges.end());
    std::vector<std::vector<std::string>> rows{heading};
    for (const TableLine& line : table.lines) {
        std::vector<std::string> texts{line.word, line.rate};
        for (const TableCell& cell : line.cells) {
            texts.push_back(cell.text + (cell.remarks.empty() ? " " : "*"));
        }
        rows.push_back(texts);
    }
    return table.title + "\n" + TableText(rows) + "\n";
}

std::string NotesOn(const CharacterisationResults& results) {
    std::string notes;
    for (const CharacterisationRow& row : results.rows) {
        if (const std::string remarks = RemarksOn(row); !remarks.empty()) {
            std::string line = remarks;
            for (std::size_t at = line.find('\n'); at != std::string::npos;
                 at = line.find('\n', at)) {
                line.replace(at, 1, "; ");
            }
            notes += "* " + SettingText(results.plan.converter, row.setting) + ": " + line + "\n";
        }
    }
    return notes;
}

std::string NumberOrEmpty(const std::optional<double>& number) {
    return number ? ShortestText(*number) : "";
}

std::string KindsOf(const CharacterisationRow& row) {
    std::vector<std::string> kinds = row.warningKinds;
    if (!row.failure.empty()) {
        kinds.emplace_back("failed");
    }
    if (row.effective && row.effective->isLowerBound) {
        kinds.emplace_back("lower-bound");
    }
    std::string text;
    for (const std::string& kind : kinds) {
        text += (text.empty() ? "" : ";") + kind;
    }
    return text;
}

}  // namespace

NoiseTable RmsTable(const CharacterisationResults& results, Polarity polarity) {
    return TableOf(results, polarity, "RMS noise (peak-to-peak) in uV", RmsCell);
}

NoiseTable ResolutionTable(const CharacterisationResults& results, Polarity polarity) {
    return TableOf(results, polarity, "Effective resolution (noise-free) in bits", ResolutionCell);
}

BitsRange BitsRangeOf(const CharacterisationResults& results) {
    std::optional<BitsRange> range;
    for (const CharacterisationRow& row : results.rows) {
        if (row.effective && !row.effective->isLowerBound) {
            const double bits = row.effective->bits;
            range = range ? BitsRange{std::min(range->worst, bits), std::max(range->best, bits)}
                          : BitsRange{bits, bits};
        }
    }
    return range.value_or(BitsRange());
}

std::string TablesText(const CharacterisationResults& results) {
    std::string text;
    for (const Polarity polarity : results.plan.polarities) {
        text += TextOf(RmsTable(results, polarity)) + TextOf(ResolutionTable(results, polarity));
    }
    return text + NotesOn(results);
}

std::string TableCsv(const CharacterisationResults& results) {
    std::string csv =
        "range,word,rate_hz,polarity,count,rms_v,rms_low_v,rms_high_v,pkpk_v,effective_bits,"
        "noise_free_bits,warnings\n";
    for (const CharacterisationRow& row : results.rows) {
        const auto bits = [](const std::optional<RowBits>& value) {
            return value ? ShortestText(value->bits) : "";
        };
        csv += RangeName(results.plan.converter, row.setting.range) + ',' +
               std::to_string(row.setting.filterWord) + ',' + ShortestText(row.rateHertz) + ',' +
               PolarityName(row.setting.polarity) + ',' + std::to_string(row.count) + ',' +
               NumberOrEmpty(row.rmsVolts) + ',' + NumberOrEmpty(row.rmsLowVolts) + ',' +
               NumberOrEmpty(row.rmsHighVolts) + ',' + NumberOrEmpty(row.peakToPeakVolts) + ',' +
               bits(row.effective) + ',' + bits(row.noiseFree) + ',' + KindsOf(row) + '\n';
    }
    return csv;
}

std::string SettingText(Converter converter, const CharacterisedSetting& setting) {
    return RangeName(converter, setting.range) + ", " + PolarityName(setting.polarity) + ", word " +
           std::to_string(setting.filterWord);
}

std::string RowText(const CharacterisationRow& row) {
    if (!row.failure.empty()) {
        return "failed: " + row.failure;
    }
    std::string text;
    if (row.rmsVolts && row.peakToPeakVolts) {
        text = "RMS " + VoltsText(*row.rmsVolts, noiseDigits) + " (" +
               VoltsText(*row.peakToPeakVolts, noiseDigits) + ")";
    }
    if (row.effective && row.noiseFree) {
        text += ", " + ResolutionCell(row) + " bits";
    }
    return text;
}

}  // namespace vx3260
