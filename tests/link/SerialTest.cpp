// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Serial.h"

#include <gtest/gtest.h>

#include "numbers/RuntimeError.h"
#include "support/RecordingPort.h"

namespace vx3260::test {
namespace {

constexpr std::int16_t base = 888;

TEST(SerialWrite, SendsEachBitWithThreePortWrites) {
    const std::tuple<std::int32_t, std::int16_t, const char*> cases[] = {
        {0x41, 8, "1A 12 1A 1A 13 1B 1A 12 1A 1A 12 1A 1A 12 1A 1A 12 1A 1A 12 1A 1A 13 1B 1A"},
        {1, 0, "1A"},
        {-1, 2, "1A 13 1B 1A 13 1B 1A"},
        {0x1FE, 1, "1A 12 1A 1A"},  // bits above are dropped
    };
    for (const auto& [value, bits, bytes] : cases) {
        RecordingPort port;
        SerialWrite(port, value, base, bits);
        EXPECT_EQ(port.BytesTo(base), bytes) << value;
        EXPECT_EQ(port.written.size(), 3U * static_cast<unsigned>(bits) + 1) << "nowhere else";
        EXPECT_TRUE(port.readFrom.empty());
    }
    RecordingPort port;
    EXPECT_THROW(SerialWrite(port, 0, base, 32), OverflowError);
    EXPECT_THROW(SerialRead(port, 32, base), OverflowError);
}

TEST(SerialRead, ReadsWhileTheClockIsLow) {
    RecordingPort port;
    port.replies = {0x10, 0x00, 0x50, 0xEF};
    EXPECT_EQ(SerialRead(port, 4, base), 0b1010);
    EXPECT_EQ(port.BytesTo(base), "1A 12 1A 12 1A 12 1A 12 1A");
    EXPECT_EQ(port.readFrom, std::vector<std::int16_t>(4, base + 1));
    EXPECT_EQ(SerialRead(port, 0, base), 0);
    EXPECT_EQ(SerialRead(port, 24, base), 16777215) << "of a line that stands high";
}

TEST(SerialReadWhenReady, StopsPollingAtTheFirstReadyLevel) {
    RecordingPort port;
    port.replies = {0x40, 0x40, 0x00, 0x10, 0x00};
    EXPECT_EQ(SerialReadWhenReady(port, 2, base), 0b10);
    EXPECT_EQ(port.BytesTo(base), "1A 12 1A 12 1A");
    EXPECT_EQ(port.readFrom.size(), 5U);
}

TEST(SerialReadWhenReady, GivesUpAtTheHundredThousandthPoll) {
    const std::tuple<std::size_t, std::int32_t, const char*> cases[] = {
        {99998, 1, "1A 12 1A"},  // ready on poll 99999, then one bit
        {99999, INT32_MIN, "1A"},
        {200000, INT32_MIN, "1A"},
    };
    for (const auto& [pollsBeforeReady, result, bytes] : cases) {
        RecordingPort port;
        port.replies.assign(pollsBeforeReady, 0x40);
        port.standingReply = 0x10;
        EXPECT_EQ(SerialReadWhenReady(port, 1, base), result) << pollsBeforeReady;
        EXPECT_EQ(port.readFrom.size(), 100000U) << pollsBeforeReady;
        EXPECT_EQ(port.BytesTo(base), bytes) << pollsBeforeReady;
    }
}

}  // namespace
}  // namespace vx3260::test
