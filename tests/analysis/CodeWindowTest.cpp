// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/CodeWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "analysis/NoiseStatistics.h"
#include "analysis/WindowTexts.h"

namespace vx3260::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::nanoseconds;
using std::chrono::seconds;

std::vector<double> CodesOf(const CodeWindow& window) {
    std::vector<double> codes;
    for (const TimedCode& timed : window.Codes()) {
        codes.push_back(timed.code);
    }
    return codes;
}

void ExpectFiguresOf(const CodeWindow& window, const std::vector<double>& codes) {
    const WindowFigures figures = window.Figures().value();
    const ExactStatistics exact = ComputeExactStatistics(codes);
    const auto [smallest, largest] = std::minmax_element(codes.begin(), codes.end());
    EXPECT_EQ(CodesOf(window), codes);
    EXPECT_EQ(figures.count, codes.size());
    EXPECT_NEAR(figures.mean, exact.mean, 1e-8);
    EXPECT_NEAR(figures.sigma, exact.sigma, 1e-9 * (1 + exact.sigma));
    EXPECT_EQ(figures.minCode, *smallest);
    EXPECT_EQ(figures.maxCode, *largest);
}

/// Noise about levels that jump between the ends of the converter's range, with pauses.
TEST(CodeWindow, FiguresAreThoseOfTheCodesOfItsSpan) {
    constexpr std::int32_t largest = 0xFFFFFF;
    for (const unsigned seed : {1U, 2U, 3U}) {
        std::mt19937 source(seed);
        const auto below = [&source](std::uint32_t limit) { return source() % limit; };
        CodeWindow window(seconds(10));
        std::vector<TimedCode> all;
        nanoseconds now{};
        std::int32_t level = largest / 2;
        for (int i = 0; i < 20000; ++i) {
            level = below(500) == 0 ? static_cast<std::int32_t>(below(largest)) : level;
            now += milliseconds(below(2000) == 0 ? 15000 : below(20));
            const std::int32_t code =
                std::clamp(level + static_cast<std::int32_t>(below(7)) - 3, 0, largest);
            window.Add(now, code);
            all.push_back({now, code, i == 0});
            if (below(3000) == 0) {
                window.SetSpan(seconds(1 + below(60)));
            }
            if (i % 397 == 0) {
                std::vector<double> codes;
                for (const TimedCode& timed : all) {
                    if (timed.time >= now - window.Span()) {
                        codes.push_back(timed.code);
                    }
                }
                ExpectFiguresOf(window, codes);
            }
        }
    }
}

/// The largest sum of squares there is, with half of the codes at either end of 24 bits.
TEST(CodeWindow, KeepsThatManyCodesOfTheWidestSpan) {
    CodeWindow window(CodeWindow::MaxSpan);
    std::vector<double> codes;
    for (std::size_t i = 0; i < CodeWindow::MaxCodes + 1000; ++i) {
        const std::int32_t code = i % 2 == 0 ? 0 : 0xFFFFFF;
        window.Add(milliseconds(i), code);
        codes.push_back(code);
    }
    ExpectFiguresOf(window, {codes.begin() + 1000, codes.end()});
    window.Add(milliseconds(codes.size()) + 2 * CodeWindow::MaxSpan, 5);
    ExpectFiguresOf(window, {5});
    EXPECT_EQ(window.Figures()->sigma, 0);
}

TEST(CodeWindow, ShowsOlderCodesInALongerSpanAndNoneWhenCleared) {
    CodeWindow window(seconds(10));
    for (const int second : {0, 30, 60}) {
        window.StartReading();
        window.Add(seconds(second), second);
        window.Add(seconds(second + 1), second + 1);
    }
    EXPECT_EQ(CodesOf(window), (std::vector<double>{60, 61}));
    window.SetSpan(minutes(1));
    EXPECT_EQ(CodesOf(window), (std::vector<double>{1, 30, 31, 60, 61}));
    std::vector<bool> firsts;
    for (const TimedCode& timed : window.Codes()) {
        firsts.push_back(timed.first);
    }
    EXPECT_EQ(firsts, (std::vector<bool>{false, true, false, true, false}));
    window.Clear();
    EXPECT_FALSE(window.Figures());
    window.Add(seconds(70), 7);
    EXPECT_EQ(CodesOf(window), (std::vector<double>{7}));
}

TEST(CodeWindow, TextsAreInCodesAndVolts) {
    const WindowFigures figures{200, 0x800000 + 0.25, 2, 0x800000 - 256, 0x800000 + 256};
    const ConversionConditions main = MainConditions(2.5F, 7, Polarity::Bipolar);
    const WindowTexts texts = TextsOf(figures, main);
    EXPECT_EQ(texts.mean + " | " + texts.meanVolts, "8388608.3 | 0.00000008 V");
    EXPECT_EQ(texts.sigma + " | " + texts.sigmaVolts, "2.000 LSB | 610.4 nV");
    EXPECT_EQ(texts.peakToPeak + " | " + texts.peakToPeakVolts, "512 LSB | 156.3 uV");
}

}  // namespace
}  // namespace vx3260::test
