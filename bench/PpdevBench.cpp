// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <sys/ioctl.h>
// The ioctls' numbers are made by the header above.
#include <linux/ppdev.h>

#include <stdexcept>

#include "link/ReadData.h"
#include "ports/PpdevPort.h"

namespace vx3260::bench {
namespace {

constexpr int bits = 24;
constexpr int writesOfByte = 25;
constexpr int accesses = writesOfByte + 1 + 1 + 3 * bits;

void CountAccesses(benchmark::State& state) {
    state.counters["access"] = benchmark::Counter(
        accesses, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void CodeThroughPpdev(benchmark::State& state) {
    // Any device there is will do: nothing but ioctls reaches it.
    PpdevPort port("/dev/null", std::chrono::nanoseconds(0));
    if (port.ClaimParallelPort(1, -1) == 0) {
        throw std::runtime_error(port.FailureDetail());
    }
    const std::int16_t address = 888;
    ReadData data(port, address, RegisterMap::MainData);
    for (auto _ : state) {
        benchmark::DoNotOptimize(data.Read());
    }
    CountAccesses(state);
}
BENCHMARK(CodeThroughPpdev);

unsigned char Status() {
    unsigned char status = 0;
    ioctl(0, PPRSTATUS, &status);
    return status;
}

void SameIoctls(benchmark::State& state) {
    for (auto _ : state) {
        unsigned char data = 0x1A;
        for (int i = 0; i < writesOfByte + 1; ++i) {
            ioctl(0, PPWDATA, &data);
        }
        std::int32_t code = Status();
        for (int i = 0; i < bits; ++i) {
            ioctl(0, PPWDATA, &data);
            code = code << 1 | Status();
            ioctl(0, PPWDATA, &data);
        }
        benchmark::DoNotOptimize(code);
    }
    CountAccesses(state);
}
BENCHMARK(SameIoctls);

/// The clock is asked twice a read: what the pace costs where the port itself is slower than it.
void ClockAskedTwice(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::chrono::steady_clock::now());
        benchmark::DoNotOptimize(std::chrono::steady_clock::now());
    }
}
BENCHMARK(ClockAskedTwice);

}  // namespace
}  // namespace vx3260::bench
