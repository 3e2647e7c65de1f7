// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Spectrum.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

using Values = std::vector<double>;

/// Computed by scipy.signal.welch.
TEST(Spectrum, EqualsAnotherImplementation) {
    const Values codes{3, 1, 4, 1, 5, 9, 2, 6, 5, 3, 5, 8, 9};
    const std::tuple<std::size_t, Trend, Values> cases[] = {
        {8,
         Trend::Mean,
         {0.451780188874332, 0.998963056784679, 1.2811714607848, 1.33905765235081,
          0.295234823179338}},
        {8,
         Trend::Linear,
         {0.395553245842047, 0.686578839517004, 1.21342099969444, 1.35308923598437,
          0.295234823179338}},
        {7,
         Trend::Mean,
         {0.301363751690544, 0.939245630959191, 1.24993912939007, 0.933195426935502}},
        {7,
         Trend::Linear,
         {0.159079999379272, 0.654753169643893, 1.21411432110833, 0.938309165680871}},
    };
    for (const auto& [length, trend, density] : cases) {
        const Spectrum spectrum = ComputeSpectrum(codes, 10, length, trend);
        EXPECT_EQ(spectrum.segments, 2);
        ASSERT_EQ(spectrum.density.size(), density.size());
        for (std::size_t k = 0; k < density.size(); ++k) {
            EXPECT_NEAR(spectrum.density[k], density[k], 1e-12 * density[k]);
            EXPECT_DOUBLE_EQ(spectrum.frequencies[k],
                             static_cast<double>(k) * 10 / static_cast<double>(length));
        }
    }
}

TEST(Spectrum, KeepsThePower) {
    constexpr double rate = 19.8;
    constexpr double sigma = 7;
    constexpr double amplitude = 100;
    std::mt19937 source(1);
    std::normal_distribution<double> noise(8388608, sigma);
    Values codes;
    double squares = 0;
    for (int i = 0; i < 32767; ++i) {
        const double turn = i * 0.125;
        const double code = noise(source);
        squares += (code - 8388608) * (code - 8388608) / 32767;
        codes.push_back(code + amplitude * std::sin(2 * std::numbers::pi * turn));
    }
    const Spectrum spectrum = ComputeSpectrum(codes, rate, 512, Trend::Mean);
    const double tone = rate / 8;
    EXPECT_NEAR(IntegratedNoise(spectrum, tone + 0.1, tone - 0.1), amplitude / std::sqrt(2), 0.2);
    const double power = squares + amplitude * amplitude / 2;
    EXPECT_NEAR(std::pow(IntegratedNoise(spectrum, 0, rate / 2), 2), power, 0.01 * power);
    EXPECT_NEAR(spectrum.density[200], sigma / std::sqrt(rate / 2), 0.5);
}

TEST(Spectrum, IsDefinedForEveryBlock) {
    const Values blocks[] = {{5},
                             {5, 6},
                             {5, 5, 5},
                             Values(10, -2147483648.0),
                             {-2147483648.0, 2147483647.0, -2147483648.0, 2147483647.0}};
    for (const Values& codes : blocks) {
        for (const Trend trend : {Trend::Mean, Trend::Linear}) {
            const Spectrum spectrum =
                ComputeSpectrum(codes, 5, DefaultSegmentLength(codes.size()), trend);
            EXPECT_EQ(spectrum.density.empty(), codes.size() == 1);
            EXPECT_TRUE(std::isfinite(IntegratedNoise(spectrum, 0, 2.5)));
            if (codes[0] == codes.back()) {
                EXPECT_EQ(IntegratedNoise(spectrum, 0, 2.5), 0);
            }
        }
    }
    EXPECT_THROW(ComputeSpectrum({}, 1, 0, Trend::Mean), SubscriptError);
    EXPECT_THROW(ComputeSpectrum(Values{1, 2}, 1, 3, Trend::Mean), SubscriptError);
}

TEST(Spectrum, AveragesEightSegmentsOrMore) {
    const std::pair<std::size_t, std::size_t> cases[] = {
        {1, 1}, {7, 7}, {10, 8}, {71, 8}, {72, 16}, {5000, 1024}, {32767, 4096}};
    for (const auto& [readings, length] : cases) {
        EXPECT_EQ(DefaultSegmentLength(readings), length);
    }
}

TEST(Spectrum, NamesWhatTheMainsAliasTo) {
    const std::tuple<double, double, double> cases[] = {
        {200, 50, 60}, {105, 50, 45}, {19.8, 9.4, 0.6}, {10, 0, 0}};
    for (const auto& [rate, of50, of60] : cases) {
        EXPECT_NEAR(MainsLinesAt(rate)[0].frequency, of50, 1e-9) << rate;
        EXPECT_NEAR(MainsLinesAt(rate)[1].frequency, of60, 1e-9) << rate;
    }
}

}  // namespace
}  // namespace vx3260
