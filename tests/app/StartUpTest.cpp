#include "app/StartUp.h"

#include <gtest/gtest.h>

#include "support/Recorders.h"
#include "support/RecordingPort.h"

namespace vx3260 {
namespace {

using test::RecordedMessages;
using test::RecordedSystem;
using test::RecordingPort;
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
    struct {
        SystemVersion version;
        const char* name;
        bool fixedAddress;
    } const cases[] = {
        {{1, 4, 0}, "Windows 95", true},
        {{1, 4, 10}, "Windows 98", true},
        {{1, 4, 90}, "", false},
        {{2, 3, 51}, "Windows NT 3.51", false},
        {{2, 4, 0}, "Windows NT 4.0", false},
        {{2, 5, 1}, "Windows 2000", false},
        {{2, 6, 1}, "", false},
        {{0, 0, 0}, "Failed", false},
    };
    for (const auto& c : cases) {
        system.version = c.version;
        port.claims.clear();
        state = {};
        port.address = 632;
        StartUp(services);
        EXPECT_EQ(state.WindowsVersionText, c.name);
        EXPECT_EQ(state.IsNtFamily, c.fixedAddress ? 0 : -1) << c.name;
        EXPECT_EQ(port.claims.size(), c.fixedAddress ? 0U : 1U) << c.name;
        EXPECT_EQ(state.PortAddress, c.fixedAddress ? 888 : 632) << c.name;
        EXPECT_EQ(state.PrinterPortEnabled,
                  c.fixedAddress ? (Ports{true, true, true}) : (Ports{false, true, false}));
    }
}

TEST_F(StartUpTest, ClaimsTheFirstPortAndClearsFourControlBits) {
    port.count = 2;
    StartUp(services);
    EXPECT_EQ(state.PortCount, 2);
    EXPECT_EQ(port.claims, (std::vector<RecordingPort::Call>{{1, -1}}));
    EXPECT_EQ(port.infoCalls, (std::vector<RecordingPort::Call>{{1, 12}}));
    EXPECT_EQ(port.readFrom, (std::vector<std::int16_t>{890}));
    EXPECT_EQ(port.written, (std::vector<RecordingPort::Write>{{890, 0xD4}}));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(state.ReferenceVoltage, 2.5F);
}

TEST_F(StartUpTest, LeavesEnabledWhatMatchesTheAddress) {
    struct {
        std::int32_t address;
        Ports enabled;
    } const cases[] = {
        {888, {true, false, false}},
        {632, {false, true, false}},
        {956, {false, false, true}},
        {0x5000, {true, true, true}},
    };
    for (const auto& c : cases) {
        state = {};
        port.address = c.address;
        StartUp(services);
        EXPECT_EQ(state.PortAddress, c.address);
        EXPECT_EQ(state.PrinterPortEnabled, c.enabled) << c.address;
    }
}

TEST_F(StartUpTest, GoesOnWithoutAPort) {
    port.claimable = false;
    port.address = 0;
    StartUp(services);
    ASSERT_EQ(messages.shown.size(), 2U);
    EXPECT_EQ(messages.shown[0].text, "claim parallel port failed");
    EXPECT_EQ(messages.shown[0].icon, MessageIcon::None);
    EXPECT_EQ(messages.shown[0].title, "VX3260 Evaluation Software");
    EXPECT_EQ(messages.shown[1].text, "This PC does not appear to have a Printer Port");
    EXPECT_EQ(messages.shown[1].icon, MessageIcon::Exclamation);
    EXPECT_EQ(messages.shown[1].title, "GetPortAddress Error");
    EXPECT_TRUE(messages.shown[1].detail.ends_with("--simulated"));
    EXPECT_TRUE(state.PortClaimFailed);
    EXPECT_EQ(state.PortAddress, 0);
    EXPECT_EQ(port.written, (std::vector<RecordingPort::Write>{{2, 0xD4}}));
    EXPECT_EQ(state.ReferenceVoltage, 2.5F);
}

TEST_F(StartUpTest, ShowsAnAddressThatDoesNotFit) {
    port.address = 0xD010;
    StartUp(services);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, "Overflow");
    EXPECT_EQ(messages.shown[0].icon, MessageIcon::Critical);
    EXPECT_EQ(state.PortAddress, 0);
    EXPECT_EQ(state.PrinterPortEnabled, (Ports{true, true, true}));
}

TEST_F(StartUpTest, ShowsTheStatusWhenAsked) {
    system.version = {2, 5, 0};
    for (const char* commandLine : {"/SS", "--simulated x/Ss", "/ssd"}) {
        messages.shown.clear();
        system.commandLine = commandLine;
        StartUp(services);
        ASSERT_EQ(messages.shown.size(), 1U) << commandLine;
        EXPECT_EQ(messages.shown[0].text, "Windows Version:Windows 2000\rPort Address:0x378");
        EXPECT_EQ(messages.shown[0].icon, MessageIcon::Information);
        EXPECT_EQ(messages.shown[0].title, "Show Status");
    }
    messages.shown.clear();
    system.commandLine = "-ss / ss";
    StartUp(services);
    EXPECT_TRUE(messages.shown.empty());
}

}  // namespace
}  // namespace vx3260
