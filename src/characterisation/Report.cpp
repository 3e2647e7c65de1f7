// SPDX-License-Identifier: GPL-3.0-or-later
#include "characterisation/Report.h"

#include <QFile>
#include <QString>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "analysis/ReadingTexts.h"
#include "characterisation/ResultsFolder.h"
#include "characterisation/SvgChart.h"
#include "characterisation/Tables.h"
#include "files/CodeFile.h"
#include "link/RegisterLookup.h"
#include "numbers/FileErrors.h"
#include "numbers/NumberText.h"

/// The linker drops a static library's resources unless they are asked for, outside any namespace.
static void LoadTemplate() {
    Q_INIT_RESOURCE(report);
}

namespace vx3260 {
namespace {

constexpr std::size_t maxBins = 60;

std::string Template() {
    LoadTemplate();
    QFile file(QStringLiteral(":/characterisation/report.html"));
    file.open(QIODevice::ReadOnly);
    return file.readAll().toStdString();
}

using Facts = std::vector<std::pair<std::string, std::string>>;

std::string FactsTable(const Facts& facts) {
    std::string html = "<table class=\"facts\">\n";
    for (const auto& [name, text] : facts) {
        html += "<tr><th>" + Escaped(name) + "</th><td>" + Escaped(text) + "</td></tr>\n";
    }
    return html + "</table>\n";
}

std::string Conditions(const CharacterisationResults& results) {
    const CharacterisationPlan& plan = results.plan;
    return FactsTable({
        {"Converter", std::string(TraitsOf(plan.converter).name) + " ADC"},
        {"Channel", UpperCase(RegisterMap::TextOfCode(ChannelField(plan.converter), plan.channel))},
        {"Reference voltage", ShortestText(plan.referenceVoltage) + " V"},
        {"Readings", std::to_string(plan.count) + " at each setting, after " +
                         std::to_string(plan.settle) + " to settle"},
        {"Calibration", plan.calibrate ? "internal, at each setting" : "none"},
        {"Settings", std::to_string(results.rows.size()) + " of " +
                         std::to_string(SettingsOf(plan).size()) + " measured"},
    });
}

/// From red to green by the place of a resolution among all; readable in black.
std::string Shade(double bits, double worst, double best) {
    constexpr double greenHue = 130;
    const double place = best > worst ? (bits - worst) / (best - worst) : 1;
    return "background: hsl(" + FixedText(place * greenHue, 0) + ", 65%, 86%)";
}

struct BitsRange {
    double worst = HUGE_VAL;
    double best = -HUGE_VAL;
};

BitsRange BitsRangeOf(const CharacterisationResults& results) {
    BitsRange range;
    for (const CharacterisationRow& row : results.rows) {
        if (row.effective) {
            range.worst = std::min(range.worst, row.effective->bits);
            range.best = std::max(range.best, row.effective->bits);
        }
    }
    return range;
}

std::string Cell(const TableCell& cell, const BitsRange& range) {
    const std::string style =
        cell.effectiveBits
            ? " style=\"" + Shade(*cell.effectiveBits, range.worst, range.best) + "\""
            : "";
    return "<td" + style + ">" + Escaped(cell.text) + (cell.remarks.empty() ? "" : "*") + "</td>";
}

std::string TableHtml(const NoiseTable& table, const BitsRange& range) {
    std::string html =
        "<h3>" + Escaped(table.title) + "</h3>\n<table>\n<tr><th>Word</th><th>Rate (Hz)</th>";
    for (const std::string& heading : table.ranges) {
        html += "<th>" + Escaped(heading) + "</th>";
    }
    html += "</tr>\n";
    for (const TableLine& line : table.lines) {
        html += "<tr><th>" + line.word + "</th><th>" + line.rate + "</th>";
        for (const TableCell& cell : line.cells) {
            html += Cell(cell, range);
        }
        html += "</tr>\n";
    }
    return html + "</table>\n";
}

std::string Tables(const CharacterisationResults& results) {
    const BitsRange range = BitsRangeOf(results);
    std::string html;
    for (const Polarity polarity : results.plan.polarities) {
        html += TableHtml(RmsTable(results, polarity), range) +
                TableHtml(ResolutionTable(results, polarity), range);
    }
    return html;
}

std::vector<ChartSeries> SeriesOf(const CharacterisationResults& results, Polarity polarity) {
    std::vector<ChartSeries> series;
    for (const std::int32_t range : results.plan.ranges) {
        ChartSeries one{RangeName(results.plan.converter, range), {}};
        for (const std::int32_t word : results.plan.filterWords) {
            const CharacterisationRow* const row = results.RowAt({polarity, word, range});
            if (row != nullptr && row->rmsVolts.value_or(0) > 0) {
                one.points.push_back({row->rateHertz, *row->rmsVolts,
                                      row->rmsLowVolts.value_or(*row->rmsVolts),
                                      row->rmsHighVolts.value_or(*row->rmsVolts)});
            }
        }
        if (!one.points.empty()) {
            series.push_back(std::move(one));
        }
    }
    return series;
}

std::string NoiseCharts(const CharacterisationResults& results) {
    std::string html;
    for (const Polarity polarity : results.plan.polarities) {
        if (const std::vector<ChartSeries> series = SeriesOf(results, polarity); !series.empty()) {
            html += "<h3>" + PolarityName(polarity) + "</h3>\n" + NoiseChart(series);
        }
    }
    return html.empty() ? "<p>No setting with noise was measured.</p>\n" : html;
}

/// By the word length that the control register had: no setting changes it.
int StepOf(const CharacterisationResults& results) {
    const Converter converter = results.plan.converter;
    const auto control = results.registers.ValueOf(TraitsOf(converter).control);
    return control ? ConditionsOf(converter, results.plan.referenceVoltage, *control).codeStep : 1;
}

std::string HistogramOf(const CharacterisationResults& results, const CharacterisationRow& row,
                        const std::string& what, const std::string& folder) {
    const Converter converter = results.plan.converter;
    const std::string heading = "<h3>" + what + ": " +
                                Escaped(SettingText(converter, row.setting)) + "</h3>\n<p>" +
                                Escaped(RowText(row)) + "</p>\n";
    try {
        const std::vector<double> codes = ToDoubles(
            LoadCodes(PathIn(folder, DataFileName(converter, row.setting)), Notation::Decimal)
                .codes);
        const int step = StepOf(results);
        const NormalFit fit = FitNormal(codes, ComputeExactStatistics(codes), step);
        return heading + HistogramChart(ComputeHistogram(codes, maxBins, step), fit, codes.size());
    } catch (const std::runtime_error& error) {
        return heading + "<p>" + Escaped(error.what()) + "</p>\n";
    }
}

std::string Histograms(const CharacterisationResults& results, const std::string& folder) {
    const auto bits = [](const CharacterisationRow& row) {
        return row.effective ? row.effective->bits : std::nan("");
    };
    const CharacterisationRow* best = nullptr;
    const CharacterisationRow* worst = nullptr;
    for (const CharacterisationRow& row : results.rows) {
        if (!row.effective) {
            continue;
        }
        best = best == nullptr || bits(row) > bits(*best) ? &row : best;
        worst = worst == nullptr || bits(row) < bits(*worst) ? &row : worst;
    }
    if (best == nullptr) {
        return "<p>No setting was measured.</p>\n";
    }
    return HistogramOf(results, *best, "Best resolution", folder) +
           (worst == best ? "" : HistogramOf(results, *worst, "Worst resolution", folder));
}

std::string Remarks(const CharacterisationResults& results) {
    Facts facts;
    for (const CharacterisationRow& row : results.rows) {
        const std::string setting = SettingText(results.plan.converter, row.setting);
        if (!row.failure.empty()) {
            facts.emplace_back(setting, "failed: " + row.failure);
        }
        for (const std::string& warning : row.warningTexts) {
            facts.emplace_back(setting, warning);
        }
    }
    return facts.empty() ? "<p>None.</p>\n" : FactsTable(facts);
}

std::string Registers(const CharacterisationResults& results) {
    Facts facts;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        if (const auto value = results.registers.ValueOf(description.access)) {
            std::string text = RegisterMap::RegisterHex(*value, description.access);
            for (const RegisterMap::Field& field : description.fields) {
                if (!field.values.empty()) {
                    text += ", " + std::string(field.name) + " " +
                            RegisterMap::TextOfCode(field, field.CodeIn(*value));
                }
            }
            facts.emplace_back(description.title, text);
        }
    }
    return FactsTable(facts);
}

}  // namespace

std::string ReportHtml(const CharacterisationResults& results, const std::string& folder) {
    const std::string title =
        "VX3260 " + std::string(TraitsOf(results.plan.converter).name) + " ADC Noise";
    const std::string subtitle =
        TimeText(results.start) + ", " + BoardText(results.board) + ", " + results.program;
    const std::pair<std::string, std::string> parts[] = {
        {"{{title}}", Escaped(title)},           {"{{subtitle}}", Escaped(subtitle)},
        {"{{conditions}}", Conditions(results)}, {"{{tables}}", Tables(results)},
        {"{{noise}}", NoiseCharts(results)},     {"{{histograms}}", Histograms(results, folder)},
        {"{{remarks}}", Remarks(results)},       {"{{registers}}", Registers(results)},
    };
    // The template is searched, not what is put in its places.
    const std::string source = Template();
    std::string html;
    for (std::size_t at = 0; at < source.size();) {
        const auto* const part =
            std::find_if(std::begin(parts), std::end(parts), [&](const auto& candidate) {
                return source.compare(at, candidate.first.size(), candidate.first) == 0;
            });
        if (part == std::end(parts)) {
            html += source[at++];
        } else {
            html += part->second;
            at += part->first.size();
        }
    }
    return html;
}

}  // namespace vx3260
