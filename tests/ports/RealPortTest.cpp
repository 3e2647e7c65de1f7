// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/io.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
// The ioctls' numbers are made by a header above.
#include <linux/ppdev.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "app/StartUp.h"
#include "link/BoardLines.h"
#include "link/ReadData.h"
#include "link/Register.h"
#include "link/Serial.h"
#include "ports/OpenPort.h"
#include "support/Recorders.h"

/// Runs as the superuser of the virtual machine that scripts/test-parport-qemu.sh starts: a PC with
/// one printer port and no board, whose status lines stand still. The tests load and unload the
/// port's drivers.
namespace vx3260::test {
namespace {

constexpr const char* devicePath = "/dev/parport0";
constexpr std::int16_t dataAddress = 888;
constexpr std::int16_t statusAddress = dataAddress + BoardLines::StatusRegister;
constexpr std::int16_t controlAddress = dataAddress + BoardLines::ControlRegister;
constexpr unsigned nobody = 65534;  ///< a user, and a group of nothing

/// Its exit code is ignored: unloading fails for modules that others still need.
void Execute(const std::string& command) {
    EXPECT_NE(std::system(command.c_str()), -1) << command;
}

void LoadDrivers() {
    Execute("mkdir -p /tmp");  // the output of a forked process goes through a file there
    Execute("modprobe -r lp");
    Execute("modprobe -a parport_pc ppdev");
}

/// As udev does it. Returns the group's number.
gid_t GiveDeviceToItsGroup() {
    const group* const lp = getgrnam("lp");
    const gid_t owner = lp != nullptr ? lp->gr_gid : 0;
    EXPECT_NE(owner, 0U);
    EXPECT_EQ(chown(devicePath, 0, owner), 0);
    EXPECT_EQ(chmod(devicePath, 0660), 0);
    return owner;
}

/// Does what a detail text tells the user to do as the superuser.
void Follow(const std::string& detail) {
    const std::string remedy = "\n    sudo ";
    const std::size_t start = detail.find(remedy);
    ASSERT_NE(start, std::string::npos) << detail;
    const std::size_t command = start + remedy.size();
    Execute(detail.substr(command, detail.find('\n', command) - command));
}

/// The registers as they are, whichever way the port under test reaches them.
std::int16_t Literal(std::int16_t address) {
    return inb(static_cast<unsigned short>(address));
}

std::string ClaimResult(PortMethod method) {
    const auto port = OpenPort({.method = method}, dataAddress).port;
    return port->ClaimParallelPort(1, -1) == 1 ? "claimed" : port->FailureDetail();
}

/// Claims the port in a process of its own, as a user of one group, and prints the result.
[[noreturn]] void ReportClaimAs(uid_t user, gid_t group, PortMethod method) {
    const bool changed = setgroups(0, nullptr) == 0 && setgid(group) == 0 && setuid(user) == 0;
    std::fputs(changed ? ClaimResult(method).c_str() : "still the superuser", stderr);
    _exit(0);
}

/// Expects a claim by that user to give what the pattern stands for.
void ExpectResult(const std::string& pattern, uid_t user, gid_t group, PortMethod method) {
    EXPECT_EXIT(ReportClaimAs(user, group, method), testing::ExitedWithCode(0), pattern);
}

class RealPortTest : public testing::TestWithParam<PortMethod> {
  protected:
    void SetUp() override {
        LoadDrivers();
        ASSERT_EQ(ioperm(dataAddress, 3, 1), 0);
    }

    static bool ThroughTheDriver() { return GetParam() == PortMethod::Driver; }

    void StartUp() {
        port = OpenPort({.method = GetParam()}, state.PortAddress).port;
        Services services{*port, messages, system, state};
        vx3260::StartUp(services);
        ASSERT_TRUE(messages.shown.empty()) << messages.shown[0].detail;
    }

    std::unique_ptr<ParallelPort> port;
    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
};

/// Bits 6 and 7 read 1 on this port. The driver starts from 0C and sets bit 4, as this port has an
/// interrupt; direct access starts from what the register held.
TEST_P(RealPortTest, StartsUpWithFourControlBitsCleared) {
    outb(0xFF, controlAddress);
    StartUp();
    EXPECT_EQ(state.PortCount, 1);
    EXPECT_EQ(state.PortAddress, 888);
    EXPECT_EQ(port->InByte(controlAddress), ThroughTheDriver() ? 0x04 : 0xD4);
    EXPECT_EQ(Literal(controlAddress), 0xD4);
}

/// Data lines that are inputs read 1 with nothing connected.
TEST_P(RealPortTest, WritesReadsAndTurnsTheDataLines) {
    StartUp();
    // What is written; what reads give through the driver and what the register then holds; what
    // it holds and reads give with direct access; data lines that are not driven.
    const std::array<std::int16_t, 5> cases[] = {{0xFF, 0x2F, 0xFF, 0xFF, 0xFF},
                                                 {0x04, 0x04, 0xD4, 0xC4, 0x00},
                                                 {0x24, 0x24, 0xF4, 0xE4, 0xFF},
                                                 {0x00, 0x00, 0xD0, 0xC0, 0x00}};
    for (const auto& [control, read, held, direct, open] : cases) {
        port->OutByte(controlAddress, control);
        EXPECT_EQ(port->InByte(controlAddress), ThroughTheDriver() ? read : direct);
        EXPECT_EQ(Literal(controlAddress), ThroughTheDriver() ? held : direct);
        for (const std::int16_t data : std::array<std::int16_t, 3>{0x00, 0x1B, 0xE4}) {
            port->OutByte(dataAddress, data);
            EXPECT_EQ(port->InByte(dataAddress), data | open) << control;
            EXPECT_EQ(Literal(dataAddress), data | open) << control;
        }
    }
}

TEST_P(RealPortTest, ReadsStuckLinesAsSuchAndWaitsAsLongAsTheSlowestConversion) {
    using namespace std::chrono;
    constexpr std::int16_t standing = BoardLines::Dout | BoardLines::NotReady;
    StartUp();
    ASSERT_EQ(Literal(statusAddress) & standing, standing);
    EXPECT_EQ(port->InByte(statusAddress), Literal(statusAddress));
    EXPECT_EQ(Register(*port, state.PortAddress, RegisterMap::MainZeroScale).ReadReg(), 0xFFFFFF);
    ReadData data(*port, state.PortAddress, RegisterMap::MainData);
    const auto start = steady_clock::now();
    EXPECT_EQ(data.Read(), ReadTimeout);
    EXPECT_GE(steady_clock::now() - start, milliseconds(400)) << "100000 polls of 4 us";
}

TEST_P(RealPortTest, ReportsHowToLoadTheDriver) {
    Execute("modprobe -r ppdev");
    Execute("modprobe -r parport_pc");
    const std::string detail = ClaimResult(GetParam());
    EXPECT_TRUE(detail.starts_with("There is no /dev/parport0.")) << detail;
    if (!ThroughTheDriver()) {
        const auto named =
            OpenPort({.method = GetParam(), .address = dataAddress}, dataAddress).port;
        EXPECT_EQ(named->ClaimParallelPort(1, -1), 1) << named->FailureDetail();
    }
    Follow(detail);
    EXPECT_EQ(ClaimResult(GetParam()), "claimed");
}

TEST_P(RealPortTest, ReportsWhatAnOrdinaryUserLacks) {
    const gid_t owner = GiveDeviceToItsGroup();
    const std::string notDirect = "Operation not permitted. Leave out --port-access=direct";
    ExpectResult(ThroughTheDriver()
                     ? "which belongs to the group \"lp\".*\n    sudo usermod -aG lp nobody\n"
                     : notDirect,
                 nobody, nobody, GetParam());
    ExpectResult(ThroughTheDriver() ? "^claimed$" : notDirect, nobody, owner, GetParam());
}

INSTANTIATE_TEST_SUITE_P(, RealPortTest, testing::Values(PortMethod::Driver, PortMethod::Direct),
                         [](const auto& method) {
                             return method.param == PortMethod::Driver ? "Driver" : "Direct";
                         });

/// A claim that waited for the holder would never return.
TEST(RealPpdevPort, NamesTheProcessThatHoldsThePort) {
    LoadDrivers();
    const gid_t owner = GiveDeviceToItsGroup();
    const std::string self = "It is in use by process " + std::to_string(getpid()) + " \\(";
    for (const bool exclusive : {false, true}) {
        const int device = open(devicePath, O_RDWR);
        ASSERT_TRUE(!exclusive || ioctl(device, PPEXCL) == 0);
        ASSERT_EQ(ioctl(device, PPCLAIM), 0);
        ExpectResult(self, 0, 0, PortMethod::Driver);
        ExpectResult("Another program or driver holds the port", nobody, owner, PortMethod::Driver);
        close(device);
        EXPECT_EQ(ClaimResult(PortMethod::Driver), "claimed");
    }
}

TEST(RealPpdevPort, ReportsHowToUnloadThePrinterDriver) {
    LoadDrivers();
    Execute("modprobe lp");
    const std::string detail = ClaimResult(PortMethod::Driver);
    EXPECT_NE(detail.find("The driver \"lp\" holds the port"), std::string::npos) << detail;
    Follow(detail);
    EXPECT_EQ(ClaimResult(PortMethod::Driver), "claimed");
}

}  // namespace
}  // namespace vx3260::test
