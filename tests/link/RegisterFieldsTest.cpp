#include "link/RegisterFields.h"

#include <gtest/gtest.h>

#include "link/Calibration.h"
#include "link/FieldWrite.h"
#include "link/FilterRate.h"
#include "link/Reset.h"
#include "numbers/RuntimeError.h"
#include "support/RecordingPort.h"

namespace vx3260 {
namespace {

using namespace RegisterMap;
using test::RecordingPort;

constexpr std::int16_t base = 888;

TEST(Field, ChangesItsOwnBitsOnly) {
    struct {
        const Field& field;
        std::int32_t value;
        std::int32_t code;
        std::int32_t result;
    } const cases[] = {
        {OperatingMode, 0xAF, 3, 0xAB},  {Buffering, 0x83, 1, 0xC3},
        {Chcon, 0xFF, 0, 0xEF},          {Oscillator, 0x00, 1, 0x08},
        {MainChannel, 0x87, 3, 0xB7},    {InputRange, 0x0F, 2, 0x0A},
        {AuxChannel, 0xF9, 4, 0xC9},     {Reference, 0xB9, 0, 0xB8},
        {P2Function, 0x7FFF, 1, 0xFFFF}, {P1State, 0x2001, 0, 0x2000},
        {Iexc2Direction, 0, 1, 0x800},   {FilterWord, 0x45, 255, 0xFF},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.field.Insert(c.value, c.code), c.result) << c.field.name;
        EXPECT_EQ(c.field.CodeIn(c.result), c.code) << c.field.name;
    }
}

TEST(WriteField, ReadsWritesAndReadsBack) {
    RecordingPort port;
    port.standingReply = 0x10;  // every bit reads 1
    Register mode(port, base, Mode);
    const FieldWrite write = WriteField(mode, OperatingMode, 4);
    EXPECT_EQ(write.before, 0xFF);
    EXPECT_EQ(write.wanted, 0xFC);
    EXPECT_EQ(write.readBack, 0xFF);
    EXPECT_FALSE(write.Verified());
    EXPECT_EQ(port.written.size(), 3U * 25 + 25 + 2 * 17);
}

TEST(FilterRate, ConvertsBothWays) {
    EXPECT_NEAR(UpdateRateOf(0xFF), 5.3542, 5e-5);
    EXPECT_NEAR(UpdateRateOf(0x45), 19.7874, 5e-5);
    EXPECT_NEAR(UpdateRateOf(0x0D), 105.0256, 5e-5);
    EXPECT_THROW(UpdateRateOf(0), OverflowError);
    EXPECT_EQ(FilterWordFor(20), 68);
    EXPECT_EQ(FilterWordFor(100), 13);
    EXPECT_EQ(FilterWordFor(5), 255);
    EXPECT_EQ(FilterWordFor(105), 13);
}

TEST(Reset, WritesItsPattern) {
    RecordingPort hardware;
    HardwareReset(hardware, base);
    EXPECT_EQ(hardware.BytesTo(base), "18 1A");

    RecordingPort software;
    SoftwareReset(software, base);
    const std::string bytes = software.BytesTo(base);
    std::string ones;
    for (int i = 0; i < 32; ++i) {
        ones += "13 19 ";
    }
    EXPECT_TRUE(bytes.starts_with(ones + "1A 1A 12 1A")) << bytes;
    RecordingPort tests;
    for (const auto& access : {Test1, Test2}) {
        Register(tests, base, access).WriteReg();
    }
    EXPECT_EQ(bytes, ones + "1A " + tests.BytesTo(base));
    EXPECT_TRUE(software.readFrom.empty());
}

TEST(WaitForCalibration, CountsItsPolls) {
    struct {
        std::size_t polls;
        bool ended;
        std::size_t reads;
    } const cases[] = {{0, true, 1}, {500000, true, 500001}, {500001, false, 500001}};
    for (const auto& c : cases) {
        RecordingPort port;
        port.replies.assign(c.polls, 0x40);
        port.standingReply = 0x00;
        EXPECT_EQ(WaitForCalibration(port, base), c.ended);
        EXPECT_EQ(port.readFrom.size(), c.reads);
        EXPECT_TRUE(port.written.empty());
    }
}

}  // namespace
}  // namespace vx3260
