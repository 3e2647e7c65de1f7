// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <cmath>
#include <complex>
#include <random>
#include <unsupported/Eigen/FFT>

#include "analysis/Spectrum.h"
#include "analysis/Stability.h"

// The spectrum beside the bare transforms of as many segments.

namespace vx3260::bench {
namespace {

constexpr std::size_t largestBlock = 32767;

std::vector<double> NoisyCodes() {
    constexpr double mean = 8438977;
    constexpr double sigma = 12;
    std::mt19937 source(1);
    std::normal_distribution<double> normal(mean, sigma);
    std::vector<double> codes(largestBlock);
    for (double& code : codes) {
        code = std::nearbyint(normal(source));
    }
    return codes;
}

void SpectrumOf32767(benchmark::State& state) {
    const std::vector<double> codes = NoisyCodes();
    const Trend trend = state.range(0) == 0 ? Trend::Mean : Trend::Linear;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            ComputeSpectrum(codes, 20, DefaultSegmentLength(codes.size()), trend));
    }
}
BENCHMARK(SpectrumOf32767)->Arg(0)->Arg(1)->ArgName("linear")->Unit(benchmark::kMicrosecond);

void BareTransformsOf32767(benchmark::State& state) {
    const std::vector<double> codes = NoisyCodes();
    const std::size_t length = DefaultSegmentLength(codes.size());
    std::vector<std::complex<double>> transformed(length / 2 + 1);
    for (auto _ : state) {
        Eigen::FFT<double> transform;
        transform.SetFlag(Eigen::FFT<double>::HalfSpectrum);
        for (std::size_t begin = 0; begin + length <= codes.size(); begin += length / 2) {
            transform.fwd(transformed.data(), codes.data() + begin,
                          static_cast<Eigen::Index>(length));
            benchmark::DoNotOptimize(transformed.data());
        }
    }
}
BENCHMARK(BareTransformsOf32767)->Unit(benchmark::kMicrosecond);

void StabilityOf32767(benchmark::State& state) {
    const std::vector<double> codes = NoisyCodes();
    const auto factors = static_cast<AveragingFactors>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(AllanDeviation(codes, factors));
    }
}
BENCHMARK(StabilityOf32767)
    ->Arg(static_cast<int>(AveragingFactors::Octave))
    ->Arg(static_cast<int>(AveragingFactors::All))
    ->ArgName("factors")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vx3260::bench
