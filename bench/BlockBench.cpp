// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>
#include <random>

#include "SimulatedSession.h"
#include "acquisition/Reading.h"
#include "analysis/BlockWarnings.h"
#include "analysis/NoiseAnalysis.h"
#include "analysis/forms/MainNoiseForm.h"
#include "forms/data/ReadMainDataForm.h"

namespace vx3260::bench {
namespace {

constexpr std::int16_t blockSize = 5000;
/// What the real chip takes for the block at the filter word 0x45.
constexpr double realSeconds = blockSize * 0x45 * 24 / 32768.0;

/// How many times faster than the real chip.
void CountSpeed(benchmark::State& state) {
    state.counters["times_real"] =
        benchmark::Counter(realSeconds, benchmark::Counter::kIsIterationInvariantRate);
}

void BlockOf5000(benchmark::State& state) {
    SimulatedSession bench;
    ConverterReader reader(bench.port, bench.state.PortAddress, Converter::Main);
    reader.ReadControls();
    for (auto _ : state) {
        ReadBlock(reader, bench.state.BlockOf(Converter::Main), blockSize, {});
    }
    CountSpeed(state);
}
BENCHMARK(BlockOf5000)->Unit(benchmark::kMillisecond);

void BlockOf5000ThroughTheForm(benchmark::State& state) {
    SimulatedSession bench;
    ReadMainDataForm form(bench.services);
    form.show();
    form.findChild<QLineEdit*>(QStringLiteral("NumCodesText"))->setText(QStringLiteral("5000"));
    auto* const read = form.findChild<QPushButton*>(QStringLiteral("Command1"));
    for (auto _ : state) {
        read->click();
    }
    CountSpeed(state);
}
BENCHMARK(BlockOf5000ThroughTheForm)->Unit(benchmark::kMillisecond);

void StatisticsOf5000(benchmark::State& state) {
    SimulatedSession bench;
    ConverterReader reader(bench.port, bench.state.PortAddress, Converter::Main);
    reader.ReadControls();
    ReadBlock(reader, bench.state.BlockOf(Converter::Main), blockSize, {});
    const ConversionConditions conditions = MainConditions(2.5F, 7, Polarity::Bipolar);
    for (auto _ : state) {
        benchmark::DoNotOptimize(AnalyseNoise(bench.state.MainCodes, conditions));
    }
}
BENCHMARK(StatisticsOf5000)->Unit(benchmark::kMicrosecond);

/// All figures and warnings of the largest block. `sigma` in hundredths of a code: below one code
/// the normal distribution is fitted to the counts.
void StatisticsOf32767(benchmark::State& state) {
    constexpr std::size_t count = 32767;
    std::mt19937 source(1);
    std::normal_distribution<double> normal(33000.3, static_cast<double>(state.range(0)) / 100);
    std::vector<double> codes(count);
    std::vector<double> seconds(count);
    for (std::size_t i = 0; i < count; ++i) {
        codes[i] = std::nearbyint(normal(source));
        seconds[i] = static_cast<double>(i) / 19.79;
    }
    const ConversionConditions conditions =
        AuxConditions(2.5F, AuxFullScale::Reference, Polarity::Bipolar);
    for (auto _ : state) {
        benchmark::DoNotOptimize(AnalyseNoise(codes, conditions));
        benchmark::DoNotOptimize(
            WarningsAbout(codes, Converter::Aux, {.missed = *MissedConversions(seconds, 0.05)}));
    }
}
BENCHMARK(StatisticsOf32767)->ArgName("sigma")->Arg(1200)->Arg(50)->Unit(benchmark::kMicrosecond);

/// From the click in the menu until the form is drawn.
void OpenNoiseFormOf5000(benchmark::State& state) {
    SimulatedSession bench;
    ConverterReader reader(bench.port, bench.state.PortAddress, Converter::Main);
    reader.ReadControls();
    ReadBlock(reader, bench.state.BlockOf(Converter::Main), blockSize, {});
    for (auto _ : state) {
        MainNoiseForm form(bench.services);
        form.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(form.grab());
    }
}
BENCHMARK(OpenNoiseFormOf5000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vx3260::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
