#include "link/Serial.h"

#include <gtest/gtest.h>

#include "numbers/RuntimeError.h"
#include "support/RecordingPort.h"

namespace vx3260 {
namespace {

using test::RecordingPort;

constexpr std::int16_t base = 888;

TEST(SerialWrite, SendsEachBitWithThreePortWrites) {
    RecordingPort port;
    SerialWrite(port, 0x41, base, 8);
    EXPECT_EQ(port.BytesTo(base),
              "1A 12 1A 1A 13 1B 1A 12 1A 1A 12 1A 1A 12 1A 1A 12 1A 1A 12 1A 1A 13 1B 1A");
    EXPECT_EQ(port.written.size(), 25U);
    EXPECT_TRUE(port.readFrom.empty());
}

TEST(SerialWrite, CarriesAnyWidth) {
    struct {
        std::int32_t value;
        std::int16_t bits;
        const char* bytes;
    } const cases[] = {
        {1, 0, "1A"},
        {-1, 2, "1A 13 1B 1A 13 1B 1A"},
        {0x1FE, 1, "1A 12 1A 1A"},  // bits above are dropped
    };
    for (const auto& c : cases) {
        RecordingPort port;
        SerialWrite(port, c.value, base, c.bits);
        EXPECT_EQ(port.BytesTo(base), c.bytes) << c.value;
    }
    RecordingPort port;
    SerialWrite(port, 0, base, 31);
    EXPECT_EQ(port.written.size(), 94U);
    EXPECT_THROW(SerialWrite(port, 0, base, 32), OverflowError);
    EXPECT_THROW(SerialRead(port, 32, base), OverflowError);
}

TEST(SerialRead, ReadsWhileTheClockIsLow) {
    RecordingPort port;
    port.replies = {0x10, 0x00, 0x50, 0xEF};
    EXPECT_EQ(SerialRead(port, 4, base), 0b1010);
    EXPECT_EQ(port.BytesTo(base), "1A 12 1A 12 1A 12 1A 12 1A");
    EXPECT_EQ(port.readFrom, std::vector<std::int16_t>(4, base + 1));
}

TEST(SerialRead, OfAStuckLineIsAllOnes) {
    RecordingPort port;
    EXPECT_EQ(SerialRead(port, 0, base), 0);
    EXPECT_EQ(SerialRead(port, 16, base), 65535);
    EXPECT_EQ(SerialRead(port, 24, base), 16777215);
}

TEST(SerialReadWhenReady, StopsPollingAtTheFirstReadyLevel) {
    RecordingPort port;
    port.replies = {0x40, 0x40, 0x00, 0x10, 0x00};
    EXPECT_EQ(SerialReadWhenReady(port, 2, base), 0b10);
    EXPECT_EQ(port.BytesTo(base), "1A 12 1A 12 1A");
    EXPECT_EQ(port.readFrom.size(), 5U);
}

TEST(SerialReadWhenReady, GivesUpAtTheHundredThousandthPoll) {
    struct {
        std::size_t pollsBeforeReady;
        std::int32_t result;
        std::size_t reads;
        const char* bytes;
    } const cases[] = {
        {99998, 1, 100000, "1A 12 1A"},  // ready on poll 99999, then one bit
        {99999, INT32_MIN, 100000, "1A"},
        {200000, INT32_MIN, 100000, "1A"},
    };
    for (const auto& c : cases) {
        RecordingPort port;
        port.replies.assign(c.pollsBeforeReady, 0x40);
        port.standingReply = 0x10;
        EXPECT_EQ(SerialReadWhenReady(port, 1, base), c.result) << c.pollsBeforeReady;
        EXPECT_EQ(port.readFrom.size(), c.reads) << c.pollsBeforeReady;
        EXPECT_EQ(port.BytesTo(base), c.bytes) << c.pollsBeforeReady;
    }
}

}  // namespace
}  // namespace vx3260
