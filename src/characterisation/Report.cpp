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

std::string Resource(const QString& name) {
    LoadTemplate();
    QFile file(QStringLiteral(":/characterisation/") + name);
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

/// From red to green; readable in black.
std::string Shade(double place) {
    constexpr double greenHue = 130;
    return "background-color: hsl(" + FixedText(place * greenHue, 0) + ", 65%, 86%)";
}

std::string Cell(const TableCell& cell, const BitsRange& range) {
    const std::string style =
        cell.rank ? " style=\"" + Shade(range.PlaceOf(*cell.rank)) + "\"" : "";
    return "<td" + style + ">" + Escaped(cell.text) + (cell.remarks.empty() ? "" : "*") + "</td>";
}

std::string TableHtml(const NoiseTable& table, const BitsRange& range) {
    std::string html = "<h3>" + Escaped(table.title) +
                       "</h3>\n<table>\n<thead><tr><th>Word</th><th>Rate (Hz)</th>";
    for (const std::string& heading : table.ranges) {
        html += "<th>" + Escaped(heading) + "</th>";
    }
    html += "</tr></thead>\n";
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

std::string NoiseCharts(const CharacterisationResults& results, const ChartHtml& chartHtml) {
    std::string html;
    for (const Polarity polarity : results.plan.polarities) {
        if (std::vector<ChartSeries> series = SeriesOf(results, polarity); !series.empty()) {
            html += "<h3>" + PolarityName(polarity) + "</h3>\n" +
                    chartHtml(NoiseChart(std::move(series)));
        }
    }
    return html.empty() ? "<p>No setting with noise was measured.</p>\n" : html;
}

/// By the word length that the control register had: no setting changes it, and a characterisation
/// with another one does not go on.
int StepOf(const CharacterisationResults& results) {
    const Converter converter = results.plan.converter;
    const auto control = results.registers.ValueOf(TraitsOf(converter).control);
    return control ? ConditionsOf(converter, results.plan.referenceVoltage, *control).codeStep : 1;
}

/// Where the blocks are, and how charts are put into the page.
struct ReportSource {
    const std::string& folder;
    const ChartHtml& chartHtml;
};

std::string HistogramOf(const CharacterisationResults& results, const CharacterisationRow& row,
                        const std::string& what, const ReportSource& source) {
    const Converter converter = results.plan.converter;
    const std::string heading = "<h3>" + what + ": " +
                                Escaped(SettingText(converter, row.setting)) + "</h3>\n<p>" +
                                Escaped(RowText(row)) + "</p>\n";
    try {
        const std::vector<double> codes =
            ToDoubles(LoadCodes(PathIn(source.folder, DataFileName(converter, row.setting)),
                                Notation::Decimal)
                          .codes);
        const int step = StepOf(results);
        const NormalFit fit = FitNormal(codes, ComputeExactStatistics(codes), step);
        return heading + source.chartHtml(HistogramChart(ComputeHistogram(codes, maxBins, step),
                                                         fit, codes.size()));
    } catch (const std::runtime_error& error) {
        return heading + "<p>" + Escaped(error.what()) + "</p>\n";
    }
}

std::string Histograms(const CharacterisationResults& results, const ReportSource& source) {
    const auto bits = [](const CharacterisationRow& row) {
        return row.effective ? RankOf(*row.effective) : std::nan("");
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
    return HistogramOf(results, *best, "Best resolution", source) +
           (worst == best ? "" : HistogramOf(results, *worst, "Worst resolution", source));
}

std::string Remarks(const CharacterisationResults& results) {
    Facts facts;
    for (const CharacterisationRow& row : results.rows) {
        const std::string setting = SettingText(results.plan.converter, row.setting);
        if (!row.failure.empty()) {
            facts.emplace_back(setting, "failed: " + row.failure);
        }
        if (row.effective && row.effective->isLowerBound) {
            facts.emplace_back(setting, LowerBoundRemark);
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

std::string ReportTitle(const CharacterisationResults& results) {
    return "VX3260 " + std::string(TraitsOf(results.plan.converter).name) + " ADC Noise";
}

std::string ReportHtml(const CharacterisationResults& results, const std::string& folder) {
    return ReportHtml(results, folder, Resource(QStringLiteral("report.css")), SvgOf);
}

void WriteReport(const CharacterisationResults& results, const std::string& folder) {
    ReplaceFile(PathIn(folder, ReportName), ReportHtml(results, folder));
}

std::string ReportHtml(const CharacterisationResults& results, const std::string& folder,
                       const std::string& style, const ChartHtml& chartHtml) {
    const std::string title = ReportTitle(results);
    const std::string subtitle =
        TimeText(results.start) + ", " + BoardText(results.board) + ", " + results.program;
    const std::pair<std::string, std::string> parts[] = {
        {"{{style}}", style},
        {"{{title}}", Escaped(title)},
        {"{{subtitle}}", Escaped(subtitle)},
        {"{{conditions}}", Conditions(results)},
        {"{{tables}}", Tables(results)},
        {"{{noise}}", NoiseCharts(results, chartHtml)},
        {"{{histograms}}", Histograms(results, {folder, chartHtml})},
        {"{{remarks}}", Remarks(results)},
        {"{{registers}}", Registers(results)},
    };
    // The template is searched, not what is put in its places.
    const std::string page = Resource(QStringLiteral("report.html"));
    std::string html;
    for (std::size_t at = 0; at < page.size();) {
        const auto* const part =
            std::find_if(std::begin(parts), std::end(parts), [&](const auto& candidate) {
                return page.compare(at, candidate.first.size(), candidate.first) == 0;
            });
        if (part == std::end(parts)) {
            html += page[at++];
        } else {
            html += part->second;
            at += part->first.size();
        }
    }
    return html;
}

}  // namespace vx3260
