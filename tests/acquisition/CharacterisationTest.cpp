// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/Characterisation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

struct CharacterisationTest : testing::Test {
    CharacterisationTest() {
        plan.ranges = {0, 7};
        plan.filterWords = {13, 30};
        plan.polarities = {Polarity::Bipolar, Polarity::Unipolar};
        plan.count = 300;
        hooks.finished = [this](const CharacterisedBlock& block) { blocks.push_back(block); };
        hooks.restored = [this](const std::vector<RegisterMismatch>& mismatches) {
            notRestored = mismatches.size();
        };
    }

    CharacterisationEnd Run(SimulatedBench& on) {
        return Characterise(*on.services, plan, SettingsOf(plan), hooks);
    }

    std::string Contents() {
        std::string text;
        for (const RegisterSetting& reading :
             ReadConfiguration(*bench.port, bench.state.PortAddress)) {
            text += std::to_string(reading.value) + " ";
        }
        return text;
    }

    SimulatedBench bench;
    CharacterisationPlan plan;
    CharacterisationHooks hooks;
    std::vector<CharacterisedBlock> blocks;
    std::optional<std::size_t> notRestored;
};

TEST_F(CharacterisationTest, MeasuresEverySettingAndRestoresTheRegisters) {
    const std::string before = Contents();
    plan.calibrate = true;
    EXPECT_EQ(Run(bench), CharacterisationEnd::Complete);
    EXPECT_EQ(notRestored, 0U);
    EXPECT_EQ(Contents(), before);
    ASSERT_EQ(blocks.size(), 8U);
    double board = 0;
    double nominal = 0;
    for (const CharacterisedBlock& block : blocks) {
        ASSERT_EQ(block.failure, "");
        EXPECT_EQ(block.codes.size(), 300U);
        EXPECT_TRUE(block.warnings.empty()) << block.warnings.front().text;
        // 0.5 uV at 20 mV to 4 uV at 2.56 V for word 45 hexadecimal, as the root of the rate.
        const double law =
            (block.setting.range == 0 ? 0.5e-6 : 4e-6) * std::sqrt(69.0 / block.setting.filterWord);
        const double sigma = block.analysis->exact.sigma * block.analysis->own.lsbVolts / law;
        EXPECT_NEAR(sigma, 1, 0.15) << block.setting.range << " " << block.setting.filterWord;
        EXPECT_EQ(block.analysis->own.polarity, block.setting.polarity);
        board += *block.conditions.meanInterval * 300;
        nominal += DurationOf(plan, block.setting).count();
    }
    EXPECT_NEAR(nominal / board, 310.0 / 300, 0.001);
}

TEST_F(CharacterisationTest, RestoresAfterAStopAndAnError) {
    const std::string before = Contents();
    hooks.stopRequested = [this] { return blocks.size() == 1; };
    EXPECT_EQ(Run(bench), CharacterisationEnd::Stopped);
    EXPECT_EQ(blocks.size(), 1U);
    EXPECT_EQ(Contents(), before);

    notRestored.reset();
    hooks.stopRequested = {};
    hooks.finished = [](const CharacterisedBlock&) { throw std::runtime_error("disk full"); };
    EXPECT_THROW(Run(bench), std::runtime_error);
    EXPECT_EQ(notRestored, 0U);
    EXPECT_EQ(Contents(), before);
}

TEST_F(CharacterisationTest, GoesOnAfterAFailureButNotWithoutABoard) {
    SimulatedBench silent("no-data-ready");
    plan.polarities = {Polarity::Bipolar};
    EXPECT_EQ(Run(silent), CharacterisationEnd::Complete);
    EXPECT_EQ(blocks.size(), 4U);
    EXPECT_EQ(blocks.front().failure, "time-out: no data-ready for result 1 of 4");
    EXPECT_EQ(notRestored, 0U);

    blocks.clear();
    SimulatedBench gone("board-gone=100000");
    EXPECT_EQ(Run(gone), CharacterisationEnd::NoBoard);
    EXPECT_TRUE(blocks.empty());
    EXPECT_GT(*notRestored, 0U);
}

}  // namespace
}  // namespace vx3260::test
