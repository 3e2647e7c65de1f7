// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartUp.h"

#include <gtest/gtest.h>

#include "support/Recorders.h"
#include "support/RecordingPort.h"

namespace vx3260::test {
namespace {

using Ports = std::array<bool, 3>;

class StartUpTest : public testing::Test {
  protected:
    RecordingPort port;
    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
    Services services{port, messages, system, state};
};

TEST_F(StartUpTest, NamesTheOperatingSystem) {
    const std::tuple<SystemVersion, const char*, bool> cases[] = {
        {{1, 4, 0}, "Windows 95", true},
        {{1, 4, 10}, "Windows 98", true},
        {{1, 4, 90}, "", false},
        {{2, 3, 51}, "Windows NT 3.51", false},
        {{2, 4, 0}, "Windows NT 4.0", false},
        {{2, 5, 1}, "Windows 2000", false},
        {{0, 0, 0}, "Failed", false},
    };
    port.address = 632;
    for (const auto& [version, name, fixedAddress] : cases) {
        system.version = version;
        port.claims.clear();
        state = {};
        StartUp(services);
        EXPECT_EQ(state.WindowsVersionText, name);
        EXPECT_EQ(state.IsNtFamily, fixedAddress ? 0 : -1) << name;
        EXPECT_EQ(port.claims.size(), fixedAddress ? 0U : 1U) << name;
        EXPECT_EQ(state.PortAddress, fixedAddress ? 888 : 632) << name;
        EXPECT_EQ(state.PrinterPortEnabled,
                  fixedAddress ? (Ports{true, true, true}) : (Ports{false, true, false}));
    }
}

TEST_F(StartUpTest, ClaimsTheFirstPortAndClearsFourControlBits) {
    port.count = 2;
    StartUp(services);
    EXPECT_EQ(state.PortCount, 2);
    EXPECT_EQ(port.claims, (decltype(port.claims){{1, -1}}));
    EXPECT_EQ(port.infoCalls, (decltype(port.infoCalls){{1, 12}}));
    EXPECT_EQ(port.readFrom, (std::vector<std::int16_t>{890}));
    EXPECT_EQ(port.written, (decltype(port.written){{890, 0xD4}}));
    EXPECT_EQ(messages.Take(), "");
    EXPECT_EQ(state.ReferenceVoltage, 2.5F);
}

TEST_F(StartUpTest, GoesOnWithoutAPort) {
    port.claimable = false;
    port.address = 0;
    StartUp(services);
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].title, "VX3260 Evaluation Software");
    EXPECT_EQ(messages.shown[1].title, "GetPortAddress Error");
    EXPECT_TRUE(messages.shown[1].detail.ends_with("--simulated works on the simulated board."));
    EXPECT_EQ(messages.Take(),
              "Plain: claim parallel port failed\n"
              "Exclamation: This PC does not appear to have a Printer Port");
    EXPECT_TRUE(state.PortClaimFailed);
    EXPECT_EQ(state.PortAddress, 0);
    EXPECT_EQ(port.written, (decltype(port.written){{2, 0xD4}}));
    EXPECT_EQ(state.ReferenceVoltage, 2.5F);
}

TEST_F(StartUpTest, AcceptsAnyAddressThatFits) {
    const std::tuple<std::int32_t, std::int16_t, const char*> cases[] = {
        {0xD010, 0, "Critical: Overflow"}, {0x5000, 0x5000, ""}};
    for (const auto& [reported, address, message] : cases) {
        port.address = reported;
        StartUp(services);
        EXPECT_EQ(messages.Take(), message);
        EXPECT_EQ(state.PortAddress, address);
        EXPECT_EQ(state.PrinterPortEnabled, (Ports{true, true, true}));
    }
}

TEST_F(StartUpTest, ShowsTheStatusWhenAsked) {
    system.version = {2, 5, 0};
    for (const char* commandLine : {"--simulated x/Ss", "/ssd"}) {
        system.commandLine = commandLine;
        StartUp(services);
        EXPECT_EQ(messages.shown.at(0).title, "Show Status");
        EXPECT_EQ(messages.Take(), "Information: Windows Version:Windows 2000\rPort Address:0x378");
    }
    system.commandLine = "-ss / ss";
    StartUp(services);
    EXPECT_EQ(messages.Take(), "");
}

}  // namespace
}  // namespace vx3260::test
