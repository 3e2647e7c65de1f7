// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <cmath>
#include <iostream>
#include <random>

#include "analysis/Histogram.h"
#include "analysis/forms/PlotForm.h"
#include "platform/LinuxSystem.h"
#include "ports/SimulatedPort.h"
#include "ui/QtMessageBoxes.h"

// The plot beside the library's own minimal use: one graph of the same readings, in a widget of the
// same size, with the same ranges; both redraw the whole widget for each frame. The plot draws its
// legend, the axis of volts, mean and sigma and the cursors besides.

namespace vx3260::bench {
namespace {

constexpr std::size_t readings = 5000;
constexpr std::size_t readingsSeen = 4900;

std::vector<double> NormalCodes(std::size_t count) {
    constexpr double mean = 8438977;
    constexpr double sigma = 12;
    std::mt19937 source(1);
    std::normal_distribution<double> normal(mean, sigma);
    std::vector<double> codes(count);
    for (double& code : codes) {
        code = std::nearbyint(normal(source));
    }
    return codes;
}

AnalysedBlock NormalBlock() {
    const std::vector<double> codes = NormalCodes(readings);
    return {codes, AnalyseNoise(codes, MainConditions(2.5F, 0, Polarity::Bipolar))};
}

void HistogramOf32767(benchmark::State& state) {
    constexpr std::size_t count = 32767;
    const std::vector<double> codes = NormalCodes(count);
    for (auto _ : state) {
        benchmark::DoNotOptimize(ComputeHistogram(codes, MaxHistogramBins));
    }
}
BENCHMARK(HistogramOf32767)->Unit(benchmark::kMicrosecond);

struct Forms {
    SimulatedPort port;
    QtMessageBoxes messages{std::cerr};
    LinuxSystem system{0, nullptr};
    ApplicationState state;
    Services services{port, messages, system, state};
    AnalysedBlock block = NormalBlock();
    PlotForm form{services, block};
    PlotView* view = form.findChild<PlotView*>();
};

/// One frame an iteration: to and fro by a reading, nearly all of them seen.
void Pan(benchmark::State& state, QCustomPlot& plot) {
    std::size_t frame = 0;
    for (auto _ : state) {
        const std::size_t offset = frame++ % (2 * (readings - readingsSeen));
        const std::size_t first = std::min(offset, 2 * (readings - readingsSeen) - offset);
        plot.xAxis->setRange(static_cast<double>(first), static_cast<double>(first + readingsSeen));
        plot.replot(QCustomPlot::rpImmediateRefresh);
    }
    state.counters["frames"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void PanPlotOf5000(benchmark::State& state) {
    Forms forms;
    forms.form.show();
    Pan(state, *forms.view);
}
BENCHMARK(PanPlotOf5000)->Unit(benchmark::kMillisecond);

void PanMinimalPlotOf5000(benchmark::State& state) {
    Forms forms;
    forms.form.show();
    QCustomPlot plot;
    plot.resize(forms.view->size());
    QCPGraph* const graph = plot.addGraph();
    for (std::size_t i = 0; i < readings; ++i) {
        graph->addData(static_cast<double>(i + 1), forms.block.codes[i]);
    }
    plot.yAxis->setRange(forms.view->yAxis->range());
    forms.form.hide();
    plot.show();
    Pan(state, plot);
}
BENCHMARK(PanMinimalPlotOf5000)->Unit(benchmark::kMillisecond);

void PictureOf5000(benchmark::State& state) {
    Forms forms;
    for (auto _ : state) {
        benchmark::DoNotOptimize(forms.view->Png({QStringLiteral("Codes")}));
    }
}
BENCHMARK(PictureOf5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vx3260::bench
