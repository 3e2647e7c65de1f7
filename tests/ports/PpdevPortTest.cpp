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
#include <iterator>

#include "acquisition/Reading.h"
#include "app/StartUp.h"
#include "link/RegisterFields.h"
#include "ports/OpenPort.h"
#include "support/FakeParport.h"
#include "support/Recorders.h"

namespace vx3260::test {
namespace {

constexpr std::chrono::nanoseconds noPollTime{0};

class PpdevPortTest : public testing::Test {
  protected:
    void StartUp(ParallelPort& port) {
        services = std::make_unique<Services>(Services{port, messages, system, state});
        vx3260::StartUp(*services);
        parport.Forget();
    }
    /// A contents of the register that differs from `before` and starts nothing.
    static std::int32_t Changed(const RegisterMap::RegisterDescription& reg, std::int32_t before) {
        const bool mode = reg.access.readByte == RegisterMap::Mode.readByte;
        return mode ? before ^ 0x50 : before ^ 0x11;
    }
    ReadingEnd ReadBlock(Converter converter, std::int16_t size) {
        ConverterReader reader(services->port, state.PortAddress, converter);
        reader.ReadControls();
        return vx3260::ReadBlock(reader, state.BlockOf(converter), size, {});
    }

    FakeParport parport;
    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
    std::unique_ptr<Services> services;
};

TEST_F(PpdevPortTest, StartsUpOnTheFirstPort) {
    PpdevPort port("", noPollTime);
    StartUp(port);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(state.PortCount, 1);
    EXPECT_EQ(state.PortAddress, 888);
    EXPECT_EQ(parport.Board().Read(2), 0x04) << "of 0C bits 0, 1, 3 and 5 are cleared";
}

TEST_F(PpdevPortTest, ReadsAndWritesEveryRegister) {
    PpdevPort port("", noPollTime);
    StartUp(port);
    parport.Board().Chip().Preset(1, 0);  // power-down: all registers take writes
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        Register reg(port, state.PortAddress, description.access);
        const auto before = static_cast<std::int32_t>(reg.ReadReg());
        EXPECT_EQ(before, static_cast<std::int32_t>(parport.Board().Chip().Contents(
                              static_cast<unsigned>(description.access.readByte & 0x0F))))
            << description.name;
        if (description.access.writeByte != 0) {
            reg.RegValue = Changed(description, before);
            reg.WriteReg();
            EXPECT_EQ(reg.ReadReg(), reg.RegValue) << description.name;
        }
    }
}

TEST_F(PpdevPortTest, IsTracedInItsOwnTime) {
    const std::string path = testing::TempDir() + "ppdev" + std::to_string(getpid()) + ".vcd";
    const auto opening = std::chrono::steady_clock::now();
    OpenedPort opened = OpenPort({.pollTime = noPollTime, .traceFile = path});
    StartUp(*opened.port);
    EXPECT_EQ(Register(*opened.port, state.PortAddress, RegisterMap::Mode).ReadReg(), 0x03);
    opened.port.reset();
    const std::chrono::duration<double, std::micro> most =
        std::chrono::steady_clock::now() - opening;
    std::ifstream file(path);
    const std::string trace{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(trace.find("\nsread\\040mode\\040=\\04003 &\n"), std::string::npos);
    const double end = std::stod(trace.substr(trace.rfind('#') + 1));
    EXPECT_GT(end, 50) << "accesses that share no time";
    EXPECT_LE(end - 1, most.count());
    std::filesystem::remove(path);
}

TEST_F(PpdevPortTest, ReadsBlocksOfBothConverters) {
    PpdevPort port("", noPollTime);
    StartUp(port);
    EXPECT_EQ(ReadBlock(Converter::Main, 3), ReadingEnd::Complete);
    EXPECT_NEAR(state.MainCodes.at(2), 8388608 * (1 + 0.01 * 0.996 / 2.56 + 0.002), 99);
    EXPECT_EQ(ReadBlock(Converter::Aux, 3), ReadingEnd::Complete);
    EXPECT_NEAR(state.AuxCodes.at(2), 65536 * (0.29815 * 0.996 / 2.5 + 0.002), 99);
}

TEST_F(PpdevPortTest, SpendsOneIoctlAnAccess) {
    PpdevPort port("", noPollTime);
    StartUp(port);
    Register mode(port, state.PortAddress, RegisterMap::Mode);
    Register io(port, state.PortAddress, RegisterMap::IOControl);
    ReadData data(port, state.PortAddress, RegisterMap::MainData);
    const struct {
        std::function<void()> access;
        int writes;
        int reads;
    } cases[] = {
        {[&] { mode.ReadReg(); }, 25 + 17, 8},
        {[&] { io.ReadReg(); }, 25 + 33, 16},
        {[&] { io.WriteReg(); }, 25 + 49, 0},
    };
    for (const auto& c : cases) {
        parport.Forget();
        c.access();
        EXPECT_EQ(parport.Count(PPWDATA), c.writes);
        EXPECT_EQ(parport.Count(PPRSTATUS), c.reads);
        EXPECT_EQ(parport.Count(), c.writes + c.reads) << "other ioctls";
    }
    parport.Forget();
    data.Read();
    EXPECT_EQ(parport.Count(PPWDATA), 25 + 1 + 48);
    EXPECT_GT(parport.Count(PPRSTATUS), 24) << "24 bits and the polls";
    EXPECT_EQ(parport.Count(), parport.Count(PPWDATA) + parport.Count(PPRSTATUS));
}

TEST_F(PpdevPortTest, TurnsTheDataLinesByAnIoctlOfItsOwn) {
    PpdevPort port("", noPollTime);
    StartUp(port);
    const struct {
        std::int16_t written;
        std::int16_t read;
    } cases[] = {{0xFF, 0x2F}, {0x04, 0x04}, {0x24, 0x24}, {0x00, 0x00}};
    for (const auto& c : cases) {
        port.OutByte(890, c.written);
        EXPECT_EQ(port.InByte(890), c.read);
        EXPECT_EQ(parport.Board().Read(2), c.read);
    }
    port.OutByte(888, 0x1B);
    EXPECT_EQ(port.InByte(888), 0x1B);
}

TEST_F(PpdevPortTest, ReachesOnlyItsOwnAddressesOnceItIsClaimed) {
    PpdevPort port("", noPollTime);
    port.OutByte(888, 0);
    EXPECT_EQ(port.InByte(889), 0xFF);
    EXPECT_EQ(port.ClaimParallelPort(2, -1), 0);
    EXPECT_EQ(port.ClaimParallelPort(1, -1), 1);
    parport.Forget();
    for (const int number : {632, 887, 891, -888}) {
        const auto address = static_cast<std::int16_t>(number);
        port.OutByte(address, 0);
        EXPECT_EQ(port.InByte(address), 0xFF) << address;
    }
    EXPECT_EQ(parport.Count(), 0);
}

TEST(PpdevPort, ReportsTheAddressesOfTheMenu) {
    const struct {
        const char* kernel;
        std::int32_t reported;
    } cases[] = {
        {"888\t1912", 888}, {"632\t0", 632}, {"956\t0", 956}, {"57344\t57352", 888}, {"", 888}};
    for (const auto& c : cases) {
        const FakeParport parport(c.kernel, 2);
        PpdevPort port("", noPollTime);
        ParallelPortInfo info;
        EXPECT_EQ(port.GetParallelPortInfo(1, info), 1);
        EXPECT_EQ(info.address, c.reported) << c.kernel;
        EXPECT_EQ(port.GetParallelPortInfo(2, info), 0);
    }
}

TEST_F(PpdevPortTest, TellsWhyItCannotBeClaimed) {
    const struct {
        const char* path;
        unsigned long request;
        int error;
        const char* detail;
    } cases[] = {
        {"/dev/parport7", 0, 0, "There is no /dev/parport7."},
        {"", PPCLAIM, EBUSY, "/dev/parport0 cannot be claimed: Device or resource busy."},
        {"", PPCLAIM, ENXIO, "/dev/parport0 cannot be claimed: No such device or address."},
        {"", PPEXCL, EIO, "/dev/parport0 cannot be claimed: Input/output error."},
    };
    for (const auto& c : cases) {
        parport.Fail(PPEXCL, 0);
        parport.Fail(PPCLAIM, 0);
        parport.Fail(c.request, c.error);
        messages.shown.clear();
        PpdevPort port(c.path, noPollTime);
        StartUp(port);
        ASSERT_FALSE(messages.shown.empty());
        EXPECT_EQ(messages.shown[0].text, "claim parallel port failed");
        EXPECT_TRUE(messages.shown[0].detail.starts_with(c.detail)) << messages.shown[0].detail;
        EXPECT_EQ(port.InByte(889), 0xFF);
    }
}

TEST_F(PpdevPortTest, NamesTheDriverThatHoldsThePort) {
    std::filesystem::create_directories(
        parport.Real("/proc/sys/dev/parport/parport0/devices/active"));
    std::filesystem::create_directories(parport.Real("/proc/sys/dev/parport/parport0/devices/lp"));
    parport.Fail(PPCLAIM, ENXIO);
    PpdevPort port("", noPollTime);
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
              "You may not use /dev/parport0, which belongs to the group \"lp\". Join it with\n"
              "    sudo usermod -aG lp root\nthen log out and in again.");
    ASSERT_EQ(chmod(device.c_str(), 0600), 0);
    EXPECT_TRUE(OpenFailureDetail("/dev/parport0", EACCES).starts_with("You may not use "));
    ASSERT_EQ(chown(device.c_str(), 0, 0), 0);
    const std::string noGroup = OpenFailureDetail("/dev/parport0", EACCES);
    EXPECT_TRUE(
        noGroup.ends_with("Have the administrator give the device to a group (usually "
                          "\"lp\") and you to that group."));
}

TEST_F(PpdevPortTest, IsListedWithWhatStandsInItsWay) {
    ASSERT_EQ(chmod(parport.Real("/dev/parport0").c_str(), 0640), 0);
    std::vector<PortListing> ports = ListPorts({});
    ASSERT_EQ(ports.size(), 1U);
    EXPECT_EQ(ports[0].name, "/dev/parport0");
    EXPECT_EQ(ports[0].address, 888);
    EXPECT_TRUE(ports[0].permissions.starts_with("rw-r----- ")) << ports[0].permissions;
    EXPECT_EQ(ports[0].claimFailure, "");
    parport.Fail(PPCLAIM, EBUSY);
    ports = ListPorts({});
    EXPECT_TRUE(ports[0].claimFailure.starts_with(
        "/dev/parport0 cannot be claimed: Device or resource busy."))
        << ports[0].claimFailure;
    parport.Fail(PPCLAIM, 0);
    EXPECT_EQ(ListPorts({})[0].claimFailure, "");
}

TEST_F(PpdevPortTest, ReadsOpenLinesWhenItFailsInTheMiddleOfABlock) {
    const std::pair<int, const char*> errors[] = {{ENODEV, "No such device"},
                                                  {EIO, "Input/output error"},
                                                  {EBUSY, "Device or resource busy"},
                                                  {EACCES, "Permission denied"},
                                                  {ENOENT, "No such file or directory"}};
    for (const auto& [error, reason] : errors) {
        PpdevPort port("", noPollTime);
        parport.Fail(PPRSTATUS, 0);
        StartUp(port);
        parport.Fail(PPRSTATUS, error, 100);
        state.MainCodeCount = 0;
        EXPECT_EQ(ReadBlock(Converter::Main, 50), ReadingEnd::TimedOut);
        EXPECT_GE(state.MainCodeCount, 1);
        EXPECT_LT(parport.Count(PPRSTATUS), 200) << "tried on and on";
        EXPECT_EQ(port.FailureDetail(), std::string("/dev/parport0 stopped working: ") + reason +
                                            ". Check the port's card and start the program again.");
        EXPECT_EQ(port.ClaimParallelPort(1, -1), 1) << "claimed already";
        EXPECT_EQ(port.ClaimParallelPort(2, -1), 0);
    }
}

TEST_F(PpdevPortTest, LetsAReadTakeItsTime) {
    using namespace std::chrono;
    constexpr int reads = 20;
    PpdevPort port("", milliseconds(2));
    StartUp(port);
    const auto start = steady_clock::now();
    for (int i = 0; i < reads; ++i) {
        port.InByte(889);
    }
    EXPECT_GE(steady_clock::now() - start, reads * milliseconds(2));
}

}  // namespace
}  // namespace vx3260::test
