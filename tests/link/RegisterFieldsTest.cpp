// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/RegisterFields.h"

#include <gtest/gtest.h>

#include "link/Calibration.h"
#include "link/FilterRate.h"
#include "link/Reset.h"
#include "link/Serial.h"
#include "numbers/RuntimeError.h"
#include "support/RecordingPort.h"

namespace vx3260::test {
namespace {

constexpr std::int16_t base = 888;

TEST(Field, ChangesItsOwnBitsOnly) {
    EXPECT_EQ(RegisterMap::MainChannel.Insert(0x87, 3), 0xB7);
    EXPECT_EQ(RegisterMap::MainChannel.CodeIn(0xB7), 3);
    EXPECT_EQ(RegisterMap::P2Function.Insert(0x7FFF, 1), 0xFFFF);
}

TEST(FilterRate, ConvertsBothWays) {
    EXPECT_NEAR(UpdateRateOf(0x0D), 105.0256, 5e-5);
    EXPECT_THROW(UpdateRateOf(0), OverflowError);
    EXPECT_EQ(FilterWordFor(20), 68);
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
    for (const std::int32_t testRegister : {0x0C, 0x0D}) {
        SerialWrite(expected, testRegister, base, 8);
        SerialWrite(expected, 0, base, 16);
    }
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
