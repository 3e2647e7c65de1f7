// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>
#include <linux/gpio.h>
#include <sys/ioctl.h>

#include <stdexcept>

#include "link/Serial.h"
#include "ports/GpioLines.h"
#include "ports/LinePort.h"

namespace vx3260::bench {
namespace {

constexpr int codeBits = 24;
constexpr std::int16_t gpioBase = 888;

/// Any device there is will do: nothing but ioctls and the reads of events reaches it.
LinePort ClaimedGpio() {
    const LineChoice choice = ParseLineChoice("gpio:chip=/dev/null");
    LinePort port(std::make_unique<GpioLines>(choice), choice.lines, std::chrono::nanoseconds(0));
    if (port.ClaimParallelPort(1, -1) == 0) {
        throw std::runtime_error(port.FailureDetail());
    }
    return port;
}

void CodeThroughGpio(benchmark::State& state) {
    LinePort port = ClaimedGpio();
    for (auto _ : state) {
        benchmark::DoNotOptimize(SerialRead(port, codeBits, gpioBase));
    }
}
BENCHMARK(CodeThroughGpio);

void SetLines(std::uint64_t values) {
    gpio_v2_line_values lines{values, 1};
    ioctl(0, GPIO_V2_LINE_SET_VALUES_IOCTL, &lines);
}

/// The same ioctls, and the clock that keeps the pace of reads.
void SameGpioIoctls(benchmark::State& state) {
    for (auto _ : state) {
        std::int32_t code = 0;
        for (int i = 0; i < codeBits; ++i) {
            SetLines(0);
            benchmark::DoNotOptimize(std::chrono::steady_clock::now());
            gpio_v2_line_values lines{0, 0x18};
            ioctl(0, GPIO_V2_LINE_GET_VALUES_IOCTL, &lines);
            benchmark::DoNotOptimize(std::chrono::steady_clock::now());
            code = code * 2 + static_cast<std::int32_t>(lines.bits >> 3 & 1U);
            SetLines(1);
        }
        benchmark::DoNotOptimize(code);
    }
}
BENCHMARK(SameGpioIoctls);

}  // namespace
}  // namespace vx3260::bench
