// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/PpdevPort.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
// The ioctls' numbers are made by the header above.
#include <linux/ppdev.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "app/StartUp.h"
#include "link/RegisterFields.h"
#include "ports/OpenPort.h"
#include "support/FakeParport.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

constexpr std::chrono::nanoseconds noPollTime{0};

class PpdevPortTest : public testing::Test {
  protected:
    void StartUp(ParallelPort& started) {
        Services services{started, messages, system, state};
        vx3260::StartUp(services);
        parport.Forget();
    }

    FakeParport parport;
    PpdevPort port{"", noPollTime};
    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
};

TEST_F(PpdevPortTest, StartsUpAndReadsAndWritesEveryRegister) {
    StartUp(port);
    EXPECT_EQ(messages.Take(), "");
    EXPECT_EQ(state.PortCount, 1);
    EXPECT_EQ(state.PortAddress, 888);
    EXPECT_EQ(parport.Board().Read(2), 0x04) << "of 0C bits 0, 1, 3 and 5 are cleared";
    SimulatedChip& chip = parport.Board().Chip();
    chip.Preset(1, 0);  // power-down: all registers accept writes
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        const auto address = static_cast<unsigned>(description.access.readByte & 0x0F);
        Register reg(port, state.PortAddress, description.access);
        const double before = reg.ReadReg();
        EXPECT_EQ(before, chip.Contents(address)) << description.name;
        if (description.access.writeByte != 0) {
            // A different value that starts no conversion.
            reg.RegValue = static_cast<std::int32_t>(before) ^ (address == 1 ? 0x50 : 0x11);
            reg.WriteReg();
            EXPECT_EQ(reg.ReadReg(), reg.RegValue) << description.name;
        }
    }
}

TEST_F(PpdevPortTest, IsTracedInItsOwnTime) {
    const std::string path = testing::TempDir() + "ppdev" + std::to_string(getpid()) + ".vcd";
    OpenedPort opened = OpenPort({.pollTime = noPollTime, .traceFile = path}, state.PortAddress);
    StartUp(*opened.port);
    opened.port.reset();
    std::ifstream file(path);
    const std::string trace{std::istreambuf_iterator<char>(file), {}};
    EXPECT_GT(std::stod(trace.substr(trace.rfind('#') + 1)), 50) << "all accesses at the same time";
    std::filesystem::remove(path);
}

TEST_F(PpdevPortTest, ReadsABlockWithOneIoctlAnAccess) {
    StartUp(port);
    EXPECT_EQ(ReadBlockFrom(port, state, Converter::Main, 3), ReadingEnd::Complete);
    EXPECT_NEAR(state.MainCodes.at(2), mainCodeAtStart, 99);
    parport.Forget();
    ReadData(port, state.PortAddress, RegisterMap::MainData).Read();
    EXPECT_EQ(parport.Count(PPWDATA), 25 + 1 + 48);
    EXPECT_GT(parport.Count(PPRSTATUS), 24) << "24 bits and the polls";
    EXPECT_EQ(parport.Count(), parport.Count(PPWDATA) + parport.Count(PPRSTATUS));
}

TEST_F(PpdevPortTest, ReachesItsOwnAddressesOnceItIsClaimed) {
    port.OutByte(888, 0);
    EXPECT_EQ(port.InByte(889), 0xFF);
    EXPECT_EQ(port.ClaimParallelPort(2, -1), 0);
    EXPECT_EQ(port.ClaimParallelPort(1, -1), 1);
    const std::pair<std::int16_t, std::int16_t> directions[] = {
        {0xFF, 0x2F}, {0x04, 0x04}, {0x24, 0x24}, {0x00, 0x00}};
    for (const auto& [written, read] : directions) {
        port.OutByte(890, written);
        EXPECT_EQ(port.InByte(890), read);
        EXPECT_EQ(parport.Board().Read(2), read);
    }
    port.OutByte(888, 0x1B);
    EXPECT_EQ(port.InByte(888), 0x1B);
    parport.Forget();
    for (const int address : {632, 887, 891, -888}) {
        port.OutByte(static_cast<std::int16_t>(address), 0);
        EXPECT_EQ(port.InByte(static_cast<std::int16_t>(address)), 0xFF) << address;
    }
    EXPECT_EQ(parport.Count(), 0);
}

TEST(PpdevPort, ReportsTheAddressesOfTheMenu) {
    const std::pair<const char*, std::int32_t> cases[] = {
        {"888\t1912", 888}, {"632\t0", 632}, {"956\t0", 956}, {"57344\t57352", 888}, {"", 888}};
    for (const auto& [kernel, reported] : cases) {
        const FakeParport parport(kernel, 2);
        PpdevPort port("", noPollTime);
        ParallelPortInfo info;
        EXPECT_EQ(port.GetParallelPortInfo(1, info), 1);
        EXPECT_EQ(info.address, reported) << kernel;
        EXPECT_EQ(port.GetParallelPortInfo(2, info), 0);
    }
}

TEST_F(PpdevPortTest, ReportsWhyItCannotBeClaimed) {
    const std::tuple<const char*, unsigned long, int, const char*> cases[] = {
        {"/dev/parport7", 0, 0, "There is no /dev/parport7."},
        {"", PPCLAIM, EBUSY, "/dev/parport0 cannot be claimed: Device or resource busy."},
        {"", PPEXCL, EIO, "/dev/parport0 cannot be claimed: Input/output error."},
    };
    for (const auto& [path, request, error, detail] : cases) {
        parport.Fail(PPCLAIM, 0);
        parport.Fail(request, error);
        PpdevPort refused(path, noPollTime);
        EXPECT_EQ(refused.ClaimParallelPort(1, -1), 0);
        EXPECT_TRUE(refused.FailureDetail().starts_with(detail)) << refused.FailureDetail();
        EXPECT_EQ(refused.InByte(889), 0xFF);
    }
}

TEST_F(PpdevPortTest, NamesTheDriverThatHoldsThePort) {
    const std::string devices = parport.Real("/proc/sys/dev/parport/parport0/devices");
    std::filesystem::create_directories(devices + "/active");
    std::filesystem::create_directories(devices + "/lp");
    parport.Fail(PPCLAIM, ENXIO);
    EXPECT_EQ(port.ClaimParallelPort(1, -1), 0);
    EXPECT_TRUE(port.FailureDetail().ends_with(
        "The driver \"lp\" holds the port: unload it with\n    sudo modprobe -r lp"))
        << port.FailureDetail();
}

TEST_F(PpdevPortTest, NamesTheGroupThatOwnsTheDevice) {
    const std::string device = parport.Real("/dev/parport0");
    if (chown(device.c_str(), 0, getgrnam("lp")->gr_gid) != 0 || chmod(device.c_str(), 0660) != 0) {
        GTEST_SKIP() << "only root can give a file to a group";
    }
    EXPECT_EQ(OpenFailureDetail("/dev/parport0", EACCES),
              "You have no permission to use /dev/parport0, which belongs to the group \"lp\". "
              "Join it with\n"
              "    sudo usermod -aG lp root\nthen log out and in again.");
    ASSERT_EQ(chown(device.c_str(), 0, 0), 0);
    EXPECT_TRUE(
        OpenFailureDetail("/dev/parport0", EACCES)
            .ends_with("give the device to a group (usually \"lp\") and you to that group."));
}

TEST_F(PpdevPortTest, IsListedWithTheReasonOfAFailedClaim) {
    ASSERT_EQ(chmod(parport.Real("/dev/parport0").c_str(), 0640), 0);
    const PortListing free = ListPorts({}).at(0);
    EXPECT_EQ(free.name, "/dev/parport0");
    EXPECT_EQ(free.address, 888);
    EXPECT_TRUE(free.permissions.starts_with("rw-r----- ")) << free.permissions;
    EXPECT_EQ(free.claim, PortClaim::Possible);
    parport.Fail(PPCLAIM, EBUSY);
    EXPECT_TRUE(ListPorts({}).at(0).remarks.starts_with("/dev/parport0 cannot be claimed: "));
}

TEST_F(PpdevPortTest, ReadsOpenLinesWhenItFailsInTheMiddleOfABlock) {
    StartUp(port);
    parport.Fail(PPRSTATUS, ENODEV, 100);
    EXPECT_EQ(ReadBlockFrom(port, state, Converter::Main, 50), ReadingEnd::TimedOut);
    EXPECT_GE(state.MainCodeCount, 1);
    EXPECT_LT(parport.Count(PPRSTATUS), 200) << "kept trying";
    EXPECT_EQ(port.FailureDetail(),
              "/dev/parport0 stopped working: No such device. Check the port's card and start the "
              "program again.");
    EXPECT_EQ(port.ClaimParallelPort(1, -1), 1) << "claimed already";
}

TEST_F(PpdevPortTest, ReadTakesThePollTime) {
    using namespace std::chrono;
    PpdevPort slow("", milliseconds(40));
    StartUp(slow);
    const auto start = steady_clock::now();
    slow.InByte(889);
    EXPECT_GE(steady_clock::now() - start, milliseconds(40));
}

}  // namespace
}  // namespace vx3260::test
