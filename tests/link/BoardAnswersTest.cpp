// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/BoardAnswers.h"

#include <gtest/gtest.h>

namespace vx3260::test {
namespace {

using Answer = BoardAnswers::Answer;

struct Access {
    char kind;  ///< w and r with a communications byte's address, t
    std::int16_t address = 0;
    std::int32_t value = 0;
};

Answer After(const std::vector<Access>& accesses) {
    BoardAnswers answers;
    for (const auto& [kind, address, value] : accesses) {
        if (kind == 't') {
            answers.TimedOut();
        } else if (kind == 'w') {
            answers.Wrote(address, 8, value);
        } else {
            answers.Read(static_cast<std::int16_t>(0x40 | address), 8, value);
        }
    }
    return answers.Last();
}

TEST(BoardAnswers, GoByWhatOnlyABoardOrOnlyNoneCanGive) {
    EXPECT_EQ(After({}), Answer::Unknown);
    EXPECT_EQ(After({{'r', 1, 0}, {'r', 4, 0xFF}, {'r', 7, 0}}), Answer::Unknown);
    EXPECT_EQ(After({{'r', 1, 3}}), Answer::Given);
    EXPECT_EQ(After({{'r', 1, 3}, {'r', 1, 0}}), Answer::Given);
    EXPECT_EQ(After({{'r', 1, 3}, {'r', 1, 0xFF}}), Answer::Missing) << "bits 7 and 5";
    EXPECT_EQ(After({{'w', 4, 0x45}, {'r', 4, 0}}), Answer::Missing);
    EXPECT_EQ(After({{'w', 4, 0x45}, {'r', 2, 0}, {'r', 4, 0}}), Answer::Unknown);
    EXPECT_EQ(After({{'w', 4, 0x1FF}, {'r', 4, 0xFF}}), Answer::Unknown);
    EXPECT_EQ(After({{'r', 1, 3}, {'t'}}), Answer::Missing);
    EXPECT_EQ(After({{'t'}, {'r', 1, 3}}), Answer::Given);
}

}  // namespace
}  // namespace vx3260::test
