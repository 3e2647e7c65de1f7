// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <filesystem>

#include "IdlePort.h"
#include "link/Register.h"
#include "link/RegisterMap.h"
#include "link/Serial.h"
#include "ports/OpenPort.h"

// Each routine of the link beside a straight loop that makes the same calls through the same
// reference. `access` is the time of one port access.

namespace vx3260::bench {
namespace {

constexpr std::int16_t base = 888;

void CountAccesses(benchmark::State& state, int perIteration) {
    state.counters["access"] = benchmark::Counter(
        perIteration, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void SerialWrite8(benchmark::State& state) {
    ParallelPort& port = IdlePort();
    std::int32_t value = 0x41;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        SerialWrite(port, value, base, 8);
    }
    CountAccesses(state, 25);
}
BENCHMARK(SerialWrite8);

void SerialWrite8Straight(benchmark::State& state) {
    ParallelPort& port = IdlePort();
    std::int32_t value = 0x41;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        for (int bit = 7; bit >= 0; --bit) {
            const bool one = (value >> bit & 1) != 0;
            port.OutByte(base, 0x1A);
            port.OutByte(base, one ? 0x13 : 0x12);
            port.OutByte(base, one ? 0x1B : 0x1A);
        }
        port.OutByte(base, 0x1A);
    }
    CountAccesses(state, 25);
}
BENCHMARK(SerialWrite8Straight);

void SerialRead24(benchmark::State& state) {
    ParallelPort& port = IdlePort();
    for (auto _ : state) {
        benchmark::DoNotOptimize(SerialRead(port, 24, base));
    }
    CountAccesses(state, 73);
}
BENCHMARK(SerialRead24);

/// One transfer instead of 72 accesses.
void SerialRead24AtOnce(benchmark::State& state) {
    ParallelPort& port = IdleTransferPort();
    for (auto _ : state) {
        benchmark::DoNotOptimize(SerialRead(port, 24, base));
    }
    CountAccesses(state, 73);
}
BENCHMARK(SerialRead24AtOnce);

void SerialRead24Straight(benchmark::State& state) {
    ParallelPort& port = IdlePort();
    for (auto _ : state) {
        std::int32_t word = 0;
        port.OutByte(base, 0x1A);
        for (int bit = 23; bit >= 0; --bit) {
            port.OutByte(base, 0x12);
            const int lines = port.InByte(base + 1);
            port.OutByte(base, 0x1A);
            word |= (lines & 0x10) != 0 ? 1 << bit : 0;
        }
        benchmark::DoNotOptimize(word);
    }
    CountAccesses(state, 73);
}
BENCHMARK(SerialRead24Straight);

void PollsWithoutAnswer(benchmark::State& state) {
    ParallelPort& port = IdlePort();
    for (auto _ : state) {
        benchmark::DoNotOptimize(SerialReadWhenReady(port, 24, base));
    }
    CountAccesses(state, 100001);
}
BENCHMARK(PollsWithoutAnswer)->Unit(benchmark::kMicrosecond);

void ReadRegisters(benchmark::State& state, const PortChoice& choice) {
    const OpenedPort board = OpenPort(choice, base);
    Register mode(*board.port, base, RegisterMap::Mode);
    for (auto _ : state) {
        benchmark::DoNotOptimize(mode.ReadReg());
    }
    CountAccesses(state, 50);
}

void RegisterReadSimulated(benchmark::State& state) {
    ReadRegisters(state, {.simulated = true});
}
BENCHMARK(RegisterReadSimulated);

/// Every change of a line is handed to the operating system at once.
void RegisterReadSimulatedTraced(benchmark::State& state) {
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "vx3260-bench.vcd";
    ReadRegisters(state, {.simulated = true, .traceFile = file.string()});
    std::filesystem::remove(file);
}
BENCHMARK(RegisterReadSimulatedTraced);

}  // namespace
}  // namespace vx3260::bench
