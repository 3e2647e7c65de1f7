// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/BlockWarnings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

namespace vx3260 {
namespace {

using Codes = std::vector<double>;

/// Rounded Gaussian noise; `change` adds to reading i of the unrounded values.
Codes Noise(std::size_t count, double sigma, unsigned seed = 1, double mean = 32000,
            const std::function<double(std::size_t)>& change = {}) {
    std::mt19937 source(seed);
    std::normal_distribution<double> normal(mean, sigma);
    Codes codes(count);
    for (std::size_t i = 0; i < count; ++i) {
        codes[i] = std::nearbyint(normal(source) + (change ? change(i) : 0));
    }
    return codes;
}

std::string TextOf(const std::vector<BlockWarning>& warnings) {
    std::string text;
    for (const BlockWarning& warning : warnings) {
        text += std::string(NameOf(warning.kind)) +
                (warning.count ? " " + std::to_string(*warning.count) : "") + "; ";
    }
    return text;
}

/// What 200 readings miss, one of which comes after so many intervals of 0.05 s.
std::int64_t MissedBy(double intervals, std::optional<double> nominal = std::nullopt) {
    constexpr std::size_t count = 200;
    constexpr std::size_t longAt = 50;
    std::vector<double> seconds{0};
    for (std::size_t i = 1; i < count; ++i) {
        seconds.push_back(seconds.back() + (i == longAt ? intervals : 1) * 0.05);
    }
    return MissedConversions(seconds, nominal).value();
}

TEST(BlockWarnings, NameWhatMakesABlockUnfit) {
    Codes clipped = Noise(2000, 419, 1, 200);
    for (double& code : clipped) {
        code = std::max(code, 0.0);
    }
    const auto zeros = std::count(clipped.begin(), clipped.end(), 0);
    Codes spike = Noise(200, 3);
    spike[16] += 500;
    spike[90] -= 100;
    Codes wave =
        Noise(500, 3, 1, 32000, [](std::size_t i) { return 3 * std::sin(0.3 * double(i)); });
    const Codes clean = Noise(200, 3);
    const std::tuple<Converter, Codes, WarningContext, std::string> cases[] = {
        {Converter::Main, {}, {}, ""},
        {Converter::Main, {5}, {}, ""},
        {Converter::Main, {1, 0xFFFFFE}, {}, ""},
        {Converter::Main, {1, 0xFFFF00}, {256}, "clipped 1; "},
        {Converter::Main, {0, 5, 0xFFFFFF}, {}, "clipped 2; "},
        {Converter::Main, {0, 0, 0}, {}, "clipped 3; "},
        {Converter::Main, clipped, {}, "clipped " + std::to_string(zeros) + "; "},
        {Converter::Main, {5, 5}, {}, "constant 2; "},
        {Converter::Main, {0, 0x1000000}, {}, "clipped 1; outside 1; "},
        {Converter::Aux, {INT32_MIN}, {}, "outside 1; "},
        {Converter::Aux, {0x10000, 0x10000}, {}, "constant 2; outside 2; "},
        {Converter::Aux, spike, {}, "outlier 2; "},
        {Converter::Aux, clean, {1, MissedBy(4.1), false}, "missed 3; "},
        {Converter::Aux, clean, {1, MissedBy(1.4), true}, "over-range; "},
        {Converter::Aux, clean, {1, MissedBy(1, 0.025)}, "missed 199; "},
        {Converter::Aux,
         Noise(200, 3, 1, 32000, [](std::size_t i) { return 0.05 * double(i); }),
         {},
         "drift; correlated; "},
        {Converter::Aux, wave, {}, "correlated; "},
    };
    for (const auto& [converter, codes, context, expected] : cases) {
        EXPECT_EQ(TextOf(WarningsAbout(codes, converter, context)), expected);
    }
    const std::tuple<Codes, std::string, bool> texts[] = {
        {clipped, "clipped: " + std::to_string(zeros) + " codes at 0; mean and noise", false},
        {{0xFFFF, 0xFFFF}, "clipped: 2 codes at full scale, 0xFFFF; mean and noise", true},
        {{7, 7},
         "all 2 codes are 0x7; the input is over range, a line is stuck or the noise is "
         "below one LSB. Check",
         true},
        {{0x10001, 5}, "1 code is outside 0 to 0xFFFF; is it the right file", true},
        {spike, "2 outliers, the farthest reading 17, 50", false},
    };
    for (const auto& [codes, begin, refused] : texts) {
        const BlockWarning warning = WarningsAbout(codes, Converter::Aux).front();
        EXPECT_TRUE(warning.text.starts_with(begin)) << warning.text;
        EXPECT_EQ(Refuses(warning, codes.size()), refused) << warning.text;
    }
}

/// By chance a warning is due in less than one of 10^4 blocks.
TEST(BlockWarnings, LeaveCleanNoiseAlone) {
    const std::tuple<std::size_t, double, unsigned> cases[] = {
        {10, 200, 2000}, {10, 0.3, 2000}, {10, 0.6, 2000}, {12, 2, 2000},
        {30, 1.2, 1500}, {50, 0.2, 1500}, {200, 0.3, 800}, {200, 12, 800},
        {5000, 0.3, 40}, {5000, 0.7, 40}, {5000, 9, 40},
    };
    unsigned blocks = 0;
    std::string warned;
    for (const auto& [count, sigma, seeds] : cases) {
        for (unsigned seed = 1; seed <= seeds; ++seed, ++blocks) {
            const Codes codes = Noise(count, sigma, seed, 32000 + seed % 10 * 0.1);
            for (const BlockWarning& warning : WarningsAbout(codes, Converter::Aux)) {
                if (warning.kind != WarningKind::Constant) {  // of ten quiet codes, rightly
                    warned += std::to_string(count) + ": " + warning.text + "\n";
                }
            }
        }
    }
    EXPECT_EQ(warned, "") << blocks << " blocks";
}

}  // namespace
}  // namespace vx3260
