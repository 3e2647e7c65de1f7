// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/Register.h"

#include <gtest/gtest.h>

#include "link/RegisterMap.h"
#include "numbers/RuntimeError.h"
#include "support/RecordingPort.h"

namespace vx3260::test {
namespace {

constexpr std::int16_t base = 888;

/// The bits of a word as SerialWrite clocks them, without the final idle level.
std::string Word(std::uint32_t value, int bits) {
    std::string text;
    for (int bit = bits - 1; bit >= 0; --bit) {
        text += (value >> bit & 1U) != 0 ? "1A 13 1B " : "1A 12 1A ";
    }
    return text;
}

TEST(Register, SendsTheWordAsTwosComplement) {
    const std::tuple<double, std::int16_t, std::uint32_t> cases[] = {
        {255.5, 8, 0x00}, {254.5, 8, 0xFE},   {16777216, 24, 0},    {-256, 16, 0xFF00},
        {-256, 8, 0x00},  {-1, 24, 0xFFFFFF}, {-32768, 16, 0x8000}, {-32512, 16, 0x8100},
    };
    RecordingPort port;
    Register reg(port, base, RegisterMap::MainZeroScale);
    for (const auto& [value, bits, sent] : cases) {
        port.written.clear();
        reg.WordLength = bits;
        reg.RegValue = value;
        reg.WriteReg();
        EXPECT_EQ(port.BytesTo(base), Word(0x08, 8) + "1A " + Word(sent, bits) + "1A") << value;
    }
    reg.RegValue = 2147483648.0;
    EXPECT_THROW(reg.WriteReg(), OverflowError);
}

TEST(Register, FollowsThePortAddress) {
    RecordingPort port;
    std::int16_t address = base;
    Register reg(port, address, RegisterMap::Mode);
    address = 632;
    port.standingReply = 0x10;
    EXPECT_EQ(reg.ReadReg(), 255);
    EXPECT_EQ(reg.RegValue, 0);
    EXPECT_EQ(port.BytesTo(base), "");
    EXPECT_EQ(port.written.size(), 25U + 17U);
    EXPECT_EQ(port.readFrom, std::vector<std::int16_t>(8, 633));
}

}  // namespace
}  // namespace vx3260::test
