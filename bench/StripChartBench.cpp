// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <ctime>
#include <random>
#include <vector>

#include "analysis/forms/StripChart.h"

// What the live chart costs beside a reading: a code added to a full window, a frame, and the share
// of a core that a stream of 105 codes a second takes in the end, with the chart's own frame rate.

namespace vx3260::bench {
namespace {

constexpr double codesPerSecond = 105;
constexpr std::chrono::nanoseconds codeDistance(static_cast<std::int64_t>(1e9 / codesPerSecond));

/// Normal codes over and over, with the times of a stream.
class Stream {
  public:
    Stream() {
        constexpr double mean = 8438977;
        constexpr double sigma = 12;
        std::mt19937 source(1);
        std::normal_distribution<double> normal(mean, sigma);
        for (std::int32_t& code : codes_) {
            code = static_cast<std::int32_t>(std::nearbyint(normal(source)));
        }
    }

    template <typename Target>
    void AddOne(Target& target) {
        time_ += codeDistance;
        target.Add(time_, codes_[next_++ % codes_.size()]);
    }

    template <typename Target>
    void Fill(Target& target, std::chrono::nanoseconds span) {
        for (std::chrono::nanoseconds filled{}; filled < span; filled += codeDistance) {
            AddOne(target);
        }
    }

  private:
    std::vector<std::int32_t> codes_ = std::vector<std::int32_t>(9973);
    std::size_t next_ = 0;
    std::chrono::nanoseconds time_{};
};

void AddToCodeWindow(benchmark::State& state) {
    Stream stream;
    CodeWindow window{std::chrono::seconds(state.range(0))};
    stream.Fill(window, CodeWindow::MaxSpan);
    for (auto _ : state) {
        stream.AddOne(window);
    }
}
BENCHMARK(AddToCodeWindow)->ArgName("span")->Arg(10)->Arg(600);

struct Chart {
    explicit Chart(std::chrono::seconds span) {
        chart.SetConditions(MainConditions(2.5F, 0, Polarity::Bipolar));
        chart.SetSpan(span);
        stream.Fill(chart, span);
        chart.resize(520, 300);
        chart.show();
        QCoreApplication::processEvents();
    }

    Stream stream;
    StripChart chart;
};

/// Drawing and painting one frame; the axes stay.
void DrawStripChart(benchmark::State& state) {
    Chart chart{std::chrono::seconds(state.range(0))};
    for (auto _ : state) {
        chart.stream.AddOne(chart.chart);
        chart.chart.Draw();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(DrawStripChart)
    ->ArgName("span")
    ->Arg(10)
    ->Arg(60)
    ->Arg(600)
    ->Unit(benchmark::kMicrosecond);

double ProcessorSeconds() {
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + 1e-9 * static_cast<double>(used.tv_nsec);
}

/// Ten seconds of a stream in real time: the share of a core that chart and events take.
void StreamToStripChart(benchmark::State& state) {
    constexpr int codes = 1050;
    Chart chart{std::chrono::seconds(state.range(0))};
    for (auto _ : state) {
        const double before = ProcessorSeconds();
        auto next = std::chrono::steady_clock::now();
        for (int i = 0; i < codes; ++i) {
            chart.stream.AddOne(chart.chart);
            QCoreApplication::processEvents();
            next += codeDistance;
            const auto pause = std::chrono::ceil<std::chrono::nanoseconds>(
                next - std::chrono::steady_clock::now());
            const timespec rest{0, std::max<std::int64_t>(0, pause.count())};
            nanosleep(&rest, nullptr);
        }
        constexpr double percent = 100;
        state.counters["core_%"] =
            percent * (ProcessorSeconds() - before) / (codes / codesPerSecond);
    }
}
BENCHMARK(StreamToStripChart)
    ->ArgName("span")
    ->Arg(10)
    ->Arg(600)
    ->Iterations(1)
    ->Unit(benchmark::kSecond);

}  // namespace
}  // namespace vx3260::bench
