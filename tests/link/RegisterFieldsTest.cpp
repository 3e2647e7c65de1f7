#include "link/RegisterFields.h"

#include <gtest/gtest.h>

#include "link/Calibration.h"
#include "link/FieldWrite.h"
#include "link/FilterRate.h"
#include "link/Reset.h"
#include "numbers/RuntimeError.h"
#include "support/RecordingPort.h"

namespace vx3260::test {
namespace {

using namespace RegisterMap;

constexpr std::int16_t base = 888;

TEST(Field, ChangesItsOwnBitsOnly) {
    const std::tuple<const Field&, std::int32_t, std::int32_t, std::int32_t> cases[] = {
        {OperatingMode, 0xAF, 3, 0xAB},  {MainChannel, 0x87, 3, 0xB7},  {AuxChannel, 0xF9, 4, 0xC9},
        {P2Function, 0x7FFF, 1, 0xFFFF}, {FilterWord, 0x45, 255, 0xFF},
    };
    for (const auto& [field, value, code, result] : cases) {
        EXPECT_EQ(field.Insert(value, code), result) << field.name;
        EXPECT_EQ(field.CodeIn(result), code) << field.name;
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
    EXPECT_NEAR(UpdateRateOf(0x0D), 105.0256, 5e-5);
    EXPECT_THROW(UpdateRateOf(0), OverflowError);
    EXPECT_EQ(FilterWordFor(20), 68);
    EXPECT_EQ(FilterWordFor(5), 255);
    EXPECT_EQ(FilterWordFor(105), 13);
}

TEST(Reset, WritesItsPattern) {
    RecordingPort hardware;
    HardwareReset(hardware, base);
    EXPECT_EQ(hardware.BytesTo(base), "18 1A");

    RecordingPort expected;
    for (int i = 0; i < 32; ++i) {
        expected.OutByte(base, 0x13);
        expected.OutByte(base, 0x19);
    }
    expected.OutByte(base, 0x1A);
    Register(expected, base, Test1).WriteReg();
    Register(expected, base, Test2).WriteReg();
    RecordingPort software;
    SoftwareReset(software, base);
    EXPECT_EQ(software.BytesTo(base), expected.BytesTo(base));
    EXPECT_TRUE(software.readFrom.empty());
}

TEST(WaitForCalibration, CountsItsPolls) {
    const std::tuple<std::size_t, bool, std::size_t> cases[] = {
        {0, true, 1}, {500000, true, 500001}, {500001, false, 500001}};
    for (const auto& [polls, ended, reads] : cases) {
        RecordingPort port;
        port.replies.assign(polls, 0x40);
        port.standingReply = 0x00;
        EXPECT_EQ(WaitForCalibration(port, base), ended);
        EXPECT_EQ(port.readFrom.size(), reads);
        EXPECT_TRUE(port.written.empty());
    }
}

}  // namespace
}  // namespace vx3260::test
