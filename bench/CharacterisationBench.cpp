// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <vector>

#include "SimulatedSession.h"
#include "acquisition/Characterisation.h"
#include "acquisition/Reading.h"
#include "characterisation/Report.h"

namespace vx3260::bench {
namespace {

constexpr std::int16_t codesPerSetting = 1000;

CharacterisationPlan OneSetting() {
    return {.ranges = {7},
            .filterWords = {69},
            .polarities = {Polarity::Bipolar},
            .count = codesPerSetting};
}

/// What a setting takes: to be compared with BareReadings.
void CharacterisedSettings(benchmark::State& state) {
    SimulatedSession session;
    const CharacterisationPlan plan = OneSetting();
    const std::vector<CharacterisedSetting> settings = SettingsOf(plan);
    for (auto _ : state) {
        Characterise(
            session.services, plan, settings,
            {.finished = [](const CharacterisedBlock& block) { benchmark::DoNotOptimize(block); }});
    }
}
BENCHMARK(CharacterisedSettings)->Unit(benchmark::kMillisecond);

/// As many results as a setting takes.
void BareReadings(benchmark::State& state) {
    SimulatedSession session;
    ConverterReader reader(session.port, session.state.PortAddress, Converter::Main);
    reader.ReadControls();
    const CodeBlock block = session.state.BlockOf(Converter::Main);
    constexpr std::int16_t results = codesPerSetting + DefaultSettle;
    for (auto _ : state) {
        ReadBlock(reader, block, results, {});
    }
}
BENCHMARK(BareReadings)->Unit(benchmark::kMillisecond);

/// The report of 8 ranges and 12 words, without the two histograms.
void ReportOf96Settings(benchmark::State& state) {
    CharacterisationResults results;
    results.plan.ranges = {0, 1, 2, 3, 4, 5, 6, 7};
    results.plan.filterWords = {13, 20, 30, 45, 60, 69, 90, 120, 150, 180, 210, 255};
    results.plan.polarities = {Polarity::Bipolar};
    for (const CharacterisedSetting& setting : SettingsOf(results.plan)) {
        results.rows.push_back({.setting = setting,
                                .count = codesPerSetting,
                                .rateHertz = 20,
                                .rmsVolts = 1e-6,
                                .rmsLowVolts = 0.9e-6,
                                .rmsHighVolts = 1.1e-6,
                                .peakToPeakVolts = 6.6e-6,
                                .effective = RowBits{20, false},
                                .noiseFree = RowBits{17, false}});
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReportHtml(results, "none"));
    }
}
BENCHMARK(ReportOf96Settings)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vx3260::bench
