// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <thread>

#include "app/StartUp.h"
#include "link/BoardCheck.h"
#include "link/Register.h"
#include "ports/FtdiDevices.h"
#include "ports/OpenPort.h"
#include "support/HidGpioChip.h"
#include "support/Recorders.h"
#include "support/SimulatedBench.h"
#include "support/UsbFtdiChip.h"

/// Runs as the superuser of the virtual machine that scripts/test-lines-qemu.sh starts. The chips
/// are made by this process, their drivers are the kernel's.
namespace vx3260::test {
namespace {

constexpr std::int16_t base = 888;

void Load(const char* modules) {
    ASSERT_EQ(std::system(("modprobe -a " + std::string(modules)).c_str()), 0) << modules;
}

/// A board on a port, after start-up.
struct Started {
    explicit Started(const std::string& device) {
        opened = OpenPort({.device = device}, state.PortAddress);
        Services services{*opened.port, messages, system, state};
        StartUp(services);
    }
    ReadingEnd Read(std::int16_t count) {
        return ReadBlockFrom(*opened.port, state, Converter::Main, count);
    }

    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
    OpenedPort opened;
};

/// What works on every port: a register, the check, a block that is the simulated board's.
void ExpectABoard(Started& board) {
    ParallelPort& port = *board.opened.port;
    ASSERT_EQ(port.FailureDetail(), "");
    ASSERT_EQ(board.state.PortAddress, base);
    Register io(port, board.state.PortAddress, RegisterMap::IOControl);
    io.WriteValue(0x0011);
    EXPECT_EQ(io.ReadValue() & 0x0011, 0x0011);
    EXPECT_EQ(CheckBoard(port, board.state.PortAddress).verdict, BoardVerdict::Answers);
    // The claim of an FTDI chip resets the converter.
    const std::pair<RegisterMap::RegisterAccess, std::int32_t> settings[] = {
        {RegisterMap::Mode, RegisterMap::PowerDown},
        {RegisterMap::Filter, 13},
        {RegisterMap::MainControl, 0x87},
        {RegisterMap::Mode, RegisterMap::ContinuousConversion}};
    for (const auto& [access, value] : settings) {
        Register reg(port, board.state.PortAddress, access);
        reg.WriteValue(value);
        EXPECT_EQ(reg.ReadValue(), value);
    }
    ASSERT_EQ(board.Read(10), ReadingEnd::Complete) << port.FailureDetail();
    for (const double code : board.state.MainCodes) {
        EXPECT_NEAR(code, mainCodeAtStart, 200);
    }
}

TEST(RealLines, CarryABoardOnAGpioChip) {
    Load("uhid hid-cp2112");
    HidGpioChip chip;
    {
        Started board(chip.Port());
        ExpectABoard(board);
        EXPECT_NE(Started(chip.Port()).opened.port->FailureDetail().find("\"vx3260\""),
                  std::string::npos)
            << "the lines are held by the first";

        // A wait sleeps for up to 20 ms; the driver's own looks are counted too.
        chip.DelayReady(std::chrono::milliseconds(200));
        const int looks = chip.Looks();
        EXPECT_TRUE(board.opened.port->WaitForLow(base + 1, 0x40, 100000));
        EXPECT_LE(chip.Looks() - looks, 50);

        chip.Unplug();
        EXPECT_EQ(board.Read(3), ReadingEnd::TimedOut);
        EXPECT_NE(board.opened.port->FailureDetail().find("stopped working"), std::string::npos);
    }
}

TEST(RealLines, CarryABoardOnAnFtdiChip) {
    Load("vhci-hcd ftdi_sio");
    UsbFtdiChip chip;
    for (int tries = 0; tries < 100 && FindFtdiDevices().empty(); ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ASSERT_EQ(FindFtdiDevices().size(), 1U);
    EXPECT_EQ(FindFtdiDevices()[0].serial, "VX000001");
    std::this_thread::sleep_for(std::chrono::seconds(1));  // the serial driver takes it first
    {
        Started board("ftdi:serial=VX000001");
        ExpectABoard(board);
        const int exchanges = chip.Exchanges();
        constexpr int codes = 50;
        EXPECT_EQ(board.Read(codes), ReadingEnd::Complete);
        // The command, the look at RDY and the word; some looks come before the result.
        EXPECT_GE(chip.Exchanges() - exchanges, 3 * codes);
        EXPECT_LE(chip.Exchanges() - exchanges, 8 * codes);
    }
    std::this_thread::sleep_for(std::chrono::seconds(1));
    EXPECT_TRUE(std::filesystem::exists("/sys/bus/usb-serial/devices/ttyUSB0"))
        << "the serial driver has it again";
    {
        Started board("ftdi:");
        ASSERT_EQ(board.opened.port->FailureDetail(), "");
        chip.Unplug();
        EXPECT_EQ(board.Read(3), ReadingEnd::TimedOut);
        EXPECT_NE(board.opened.port->FailureDetail().find("stopped working"), std::string::npos);
    }
}

}  // namespace
}  // namespace vx3260::test
