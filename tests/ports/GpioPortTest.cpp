// SPDX-License-Identifier: GPL-3.0-or-later
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

#include "app/BoardState.h"
#include "app/MessageTexts.h"
#include "app/PortWords.h"
#include "app/StartUp.h"
#include "link/BoardCheck.h"
#include "link/DataReady.h"
#include "link/RegisterFields.h"
#include "ports/GpioChips.h"
#include "ports/OpenPort.h"
#include "support/FakeGpioChip.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

constexpr unsigned long setLines = GPIO_V2_LINE_SET_VALUES_IOCTL;
constexpr unsigned long getLines = GPIO_V2_LINE_GET_VALUES_IOCTL;
constexpr unsigned long request = GPIO_V2_GET_LINE_IOCTL;

constexpr std::uint64_t pullUp = GPIO_V2_LINE_FLAG_BIAS_PULL_UP;
constexpr std::uint64_t input = GPIO_V2_LINE_FLAG_INPUT;
constexpr std::uint64_t edge = GPIO_V2_LINE_FLAG_EDGE_FALLING;

class GpioPortTest : public testing::Test {
  protected:
    std::unique_ptr<ParallelPort> Open(const std::string& port) const {
        return OpenPort({.device = port, .pollTime = std::chrono::nanoseconds(0)},
                        state.PortAddress)
            .port;
    }

    /// The port after start-up, its ioctls not counted.
    std::unique_ptr<ParallelPort> Started(const std::string& port = "gpio:") {
        std::unique_ptr<ParallelPort> opened = Open(port);
        Services services{*opened, messages, system, state};
        StartUp(services);
        EXPECT_EQ(messages.Take(), "") << opened->FailureDetail();
        chip.Forget();
        return opened;
    }

    std::string FailureOf(const std::string& port) const {
        const std::unique_ptr<ParallelPort> opened = Open(port);
        EXPECT_EQ(opened->ClaimParallelPort(1, -1), 0) << port;
        EXPECT_EQ(opened->InByte(889), 0xFF);
        return opened->FailureDetail();
    }

    FakeGpioChip chip;
    RecordedMessages messages;
    RecordedSystem system;
    ApplicationState state;
};

TEST_F(GpioPortTest, ReadsAndWritesRegistersOverTheLinesOfTheWiringTable) {
    const auto port = Started();
    EXPECT_EQ(state.PortAddress, 888);
    EXPECT_EQ(port->Name(), "gpiochip0");
    EXPECT_EQ(WiringText(*port),
              "SCLK on GPIO24, DIN on GPIO23, RESET on GPIO22, DOUT on GPIO18, RDY on GPIO17");
    chip.Board().Chip().Preset(1, 0);  // power-down: all registers accept writes
    Register reg(*port, state.PortAddress, RegisterMap::IOControl);
    reg.RegValue = static_cast<std::int32_t>(reg.ReadReg()) ^ 0x11;
    reg.WriteReg();
    EXPECT_EQ(reg.ReadReg(), reg.RegValue);
    EXPECT_EQ(chip.Board().Chip().Contents(ioControlAt), reg.RegValue);
    EXPECT_EQ(CheckBoard(*port, state.PortAddress).verdict, BoardVerdict::Answers);
    port->OutByte(888, 0x0B);
    port->OutByte(890, 0x24);
    EXPECT_EQ(port->InByte(888), 0x0B);
    EXPECT_EQ(port->InByte(890), 0x24);
}

TEST_F(GpioPortTest, ReadsTheBlockThatTheChipHolds) {
    const auto port = Started();
    int good = 0;
    const auto compare = [&] {
        good += state.MainCodes.at(static_cast<std::size_t>(state.MainCodeCount) - 1) ==
                        chip.Board().Chip().Contents(5)
                    ? 1
                    : 0;
    };
    EXPECT_EQ(ReadBlockFrom(*port, state, Converter::Main, 5, {.afterEach = compare}),
              ReadingEnd::Complete);
    EXPECT_EQ(good, 5);
    EXPECT_NEAR(state.MainCodes.at(2), mainCodeAtStart, 99);
}

TEST_F(GpioPortTest, PatternThatChangesNoLineCostsNoIoctl) {
    const auto port = Started();
    for (const std::int16_t pattern : std::initializer_list<std::int16_t>{0x1A, 0x0A, 0xFA, 0x1A}) {
        port->OutByte(888, pattern);
    }
    EXPECT_EQ(chip.Count(), 0);
    port->OutByte(888, 0x13);
    EXPECT_EQ(chip.pattern, 0x13);
    EXPECT_EQ(chip.Count(setLines), 1) << "two lines at once";
    ReadData(*port, state.PortAddress, RegisterMap::MainData).Read();
    EXPECT_EQ(chip.Count(), chip.Count(setLines) + chip.Count(getLines));
    // Back to rest, two edges a bit, and DIN back to 0 after each one of the byte 0x45.
    EXPECT_EQ(chip.Count(setLines), 1 + 1 + 16 + 3 + 48);
}

TEST_F(GpioPortTest, TakesLinesByNumberAndHoldsTheSixth) {
    chip.pattern = 0;
    const auto port =
        Started("gpio:chip=/dev/gpiochip0,sclk=24,din=23,reset=22,dout=18,rdy=GPIO17,held=GPIO25");
    EXPECT_EQ(chip.pattern, 0x1A) << "levels of the claim";
    port->OutByte(888, 0x0A);
    EXPECT_EQ(chip.pattern, 0x0A);
    EXPECT_EQ(WiringText(*port),
              "SCLK on 24, DIN on 23, RESET on 22, DOUT on 18, RDY on GPIO17, held-high line on "
              "GPIO25");
}

TEST_F(GpioPortTest, SearchesAllChipsForTheNames) {
    chip.AddChip("gpiochip1", "expander", {"", "A", "B", "C", "D", "E", "GPIO24"});
    Started();
    EXPECT_EQ(chip.requestedFrom, "/dev/gpiochip0");
    EXPECT_EQ(Started("gpio:sclk=A,din=B,reset=C,dout=D,rdy=E")->Name(), "gpiochip1");
    EXPECT_EQ(chip.requestedFrom, "/dev/gpiochip1");
}

TEST_F(GpioPortTest, DoesWithoutPullUpsAndEdges) {
    const std::tuple<std::uint64_t, std::uint64_t, std::uint64_t> cases[] = {
        {0, input | pullUp, input | pullUp | edge},
        {pullUp, input, input | edge},
        {edge, input | pullUp, input | pullUp},
        {pullUp | edge, input, input}};
    for (const auto& [refused, dout, rdy] : cases) {
        chip.RefuseFlags(refused);
        const auto port = Started();
        EXPECT_EQ(chip.flags[18], dout) << refused;
        EXPECT_EQ(chip.flags[17], rdy) << refused;
        EXPECT_EQ(chip.flags[24], GPIO_V2_LINE_FLAG_OUTPUT);
        EXPECT_EQ(CheckBoard(*port, state.PortAddress).verdict, BoardVerdict::Answers);
        EXPECT_EQ(ReadBlockFrom(*port, state, Converter::Main, 1), ReadingEnd::Complete);
    }
}

TEST_F(GpioPortTest, WaitSleepsUntilAnEdge) {
    using namespace std::chrono;
    const auto port = Started();
    chip.readyLine = [] { return false; };
    EXPECT_TRUE(WaitForReady(*port, 888, 50000));
    EXPECT_EQ(chip.Count(getLines), 1) << "low already";
    for (int i = 0; i < 100; ++i) {
        chip.SendEdge();  // of results that were read long ago
    }
    chip.Forget();
    const auto start = steady_clock::now();
    chip.readyLine = [&] { return steady_clock::now() - start < milliseconds(100); };
    EXPECT_TRUE(WaitForReady(*port, 888, 50000));
    EXPECT_LE(chip.Count(), 10) << "looks in 100 ms, each some 200 us here";
    chip.Forget();
    chip.readyLine = [] { return true; };
    EXPECT_FALSE(WaitForReady(*port, 888, 50000));
    EXPECT_LE(chip.Count(), 15) << "in 200 ms";
    EXPECT_GE(chip.Count(), 2);
    chip.Forget();
    chip.readyLine = [&] {
        chip.SendEdge();  // wakes the wait, which finds RDY high again
        return true;
    };
    EXPECT_FALSE(WaitForReady(*port, 888, 100000));
    EXPECT_GT(chip.Count(), 40) << "in 400 ms";
}

TEST_F(GpioPortTest, MessagesNameTheWires) {
    const auto port = Started();
    Services services{*port, messages, system, state};
    const std::string wires =
        "SCLK on GPIO24, DIN on GPIO23, RESET on GPIO22, DOUT on GPIO18, RDY on GPIO17";
    EXPECT_EQ(BoardStateOf(services).text, "Board on gpiochip0");
    EXPECT_EQ(BoardStateOf(services).meaning,
              "Readings come from the board at these lines: " + wires);
    EXPECT_TRUE(MessageTexts::TimeoutDetail(*port).find("register and the wires: " + wires + ".") !=
                std::string::npos);
    const std::pair<const char*, std::string> advice[] = {
        {"at {RESET}", "at RESET (GPIO22)"},
        {"{DOUT}, {SCLK and DIN}", "DOUT (GPIO18), SCLK (GPIO24) and DIN (GPIO23)"},
        {"{SCLK, DIN} and", "SCLK (GPIO24), DIN (GPIO23) and"},
        {"{listed port}, and", "at the wires (" + wires + "), and"},
        {"Check the {cable} and", "Check the wires (" + wires + ") and"},
        {"the {data-ready line}.", "the data-ready line (GPIO17)."}};
    for (const auto& [text, filled] : advice) {
        EXPECT_EQ(InPortWords(text, *port), filled);
    }
    EXPECT_TRUE(MessageTexts::CalibrationTimeoutDetail(*port).ends_with("line (GPIO17)."));
    const auto second = Open("gpio:din=GPIO3");
    chip.Hold(3, "led0");
    Services failed{*second, messages, system, state};
    StartUp(failed);
    ASSERT_FALSE(messages.shown.empty());
    EXPECT_EQ(messages.shown.back().text, MessageTexts::ClaimFailed);
    EXPECT_TRUE(
        messages.shown.back().detail.ends_with("\nThe chosen lines: SCLK on GPIO24, DIN on "
                                               "GPIO3, RESET on GPIO22, DOUT on GPIO18, "
                                               "RDY on GPIO17."))
        << messages.shown.back().detail;
    state.PortClaimFailed = false;
    chip.Fail(getLines, ENODEV);
    port->InByte(889);
    EXPECT_EQ(BoardStateOf(services).text, "No lines");
}

TEST_F(GpioPortTest, NamesWhoHoldsALine) {
    chip.Hold(17, "gpio-keys");
    chip.Hold(24, "");
    EXPECT_EQ(FailureOf("gpio:"),
              "The lines of /dev/gpiochip0 cannot be claimed: Device or resource busy. In use: "
              "GPIO24, for SCLK, by the system; GPIO17, for RDY, by \"gpio-keys\". End that, or "
              "choose other lines.");
}

TEST_F(GpioPortTest, ReportsWhyTheLinesCannotBeUsed) {
    const std::pair<const char*, const char*> cases[] = {
        {"gpio:chip=/dev/gpiochip7", "There is no /dev/gpiochip7; there are /dev/gpiochip0."},
        {"gpio:rdy=GPOI17",
         "/dev/gpiochip0 (pinctrl-fake, lines 0 to 53) has no line GPOI17; did you mean GPIO17? "
         "\"vx3260-cli ports\" lists the chips; all lines have to be on one."},
        {"gpio:chip=/dev/gpiochip0,din=54",
         "/dev/gpiochip0 (pinctrl-fake, lines 0 to 53) has no line 54. \"vx3260-cli ports\" lists "
         "the chips; all lines have to be on one."},
        {"gpio:chip=/dev/gpiochip0,din=24",
         "24 and GPIO24 are the same line of /dev/gpiochip0. Choose another for one of them."},
        {"gpio:din=23", "Lines that are numbers need the chip too: chip=/dev/gpiochip0"},
        {"gpio:chip=/dev/null",
         "/dev/null is not a GPIO chip. \"vx3260-cli ports\" lists those there are."},
    };
    for (const auto& [port, detail] : cases) {
        EXPECT_EQ(FailureOf(port), detail);
    }
    EXPECT_EQ(chip.Count(request), 0);
    chip.Fail(request, EIO);
    EXPECT_EQ(FailureOf("gpio:"),
              "The lines of /dev/gpiochip0 cannot be claimed: Input/output error.");
}

TEST_F(GpioPortTest, RefusesAFifoWithoutWaitingForItsWriter) {
    const std::string fifo = testing::TempDir() + "fifo" + std::to_string(getpid());
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(FailureOf("gpio:chip=" + fifo),
              fifo + " is not a GPIO chip. \"vx3260-cli ports\" lists those there are.");
    unlink(fifo.c_str());
}

TEST_F(GpioPortTest, NamesTheKernelThatIsNeeded) {
    for (const int error : {EINVAL, ENOTTY}) {
        chip.Fail(GPIO_V2_GET_LINEINFO_IOCTL, error);
        for (const char* const port : {"gpio:", "gpio:chip=/dev/gpiochip0,sclk=24"}) {
            EXPECT_EQ(FailureOf(port),
                      "/dev/gpiochip0 cannot be used: this kernel's GPIO interface is too old; "
                      "Linux 5.10 or later is needed.");
        }
    }
}

TEST_F(GpioPortTest, ReportsTheChipThatCannotBeLookedAtBesideTheOthers) {
    chip.AddChip("gpiochip1", "expander", {"GPIO24"});
    chip.Fail(GPIO_GET_CHIPINFO_IOCTL, EACCES, 1);
    const std::string failure = FailureOf("gpio:rdy=A");
    EXPECT_TRUE(failure.starts_with("/dev/gpiochip0 (pinctrl-fake, lines 0 to 53) has no line A."))
        << failure;
    EXPECT_NE(failure.find("\nYou have no permission to use /dev/gpiochip1"), failure.npos)
        << failure;
}

TEST_F(GpioPortTest, NamesTheGroupOrTheRuleThatGivesPermission) {
    const std::string device = chip.Real("/dev/gpiochip0");
    if (chown(device.c_str(), 0, getgrnam("dialout")->gr_gid) != 0 ||
        chmod(device.c_str(), 0660) != 0) {
        GTEST_SKIP() << "only root can give a file to a group";
    }
    EXPECT_EQ(GpioOpenFailureDetail("/dev/gpiochip0", EACCES),
              "You have no permission to use /dev/gpiochip0, which belongs to the group "
              "\"dialout\". Join it with\n"
              "    sudo usermod -aG dialout root\nthen log out and in again.");
    ASSERT_EQ(chown(device.c_str(), 0, 0), 0);
    EXPECT_EQ(GpioOpenFailureDetail("/dev/gpiochip0", EACCES),
              "You have no permission to use /dev/gpiochip0. Give access to a group, with a line "
              "in /etc/udev/rules.d/60-vx3260-gpio.rules:\n"
              "    SUBSYSTEM==\"gpio\", KERNEL==\"gpiochip*\", GROUP=\"dialout\", MODE=\"0660\"\n"
              "and then\n    sudo udevadm control --reload && sudo udevadm trigger\n"
              "    sudo usermod -aG dialout root\nthen log out and in again.");
}

TEST_F(GpioPortTest, ReadsOpenLinesWhenTheChipGoesInTheMiddleOfABlock) {
    const auto port = Started();
    chip.Fail(getLines, ENODEV, 60);
    EXPECT_EQ(ReadBlockFrom(*port, state, Converter::Main, 50), ReadingEnd::TimedOut);
    EXPECT_GE(state.MainCodeCount, 1);
    EXPECT_LT(chip.Count(), 400) << "kept trying";
    EXPECT_EQ(port->FailureDetail(),
              "/dev/gpiochip0 stopped working: No such device. Check its connection and start the "
              "program again.");
}

TEST_F(GpioPortTest, ListingClaimsNothing) {
    chip.AddChip("gpiochip10", "expander", {"", ""});
    chip.Hold(4, "led0");
    ASSERT_EQ(chmod(chip.Real("/dev/gpiochip0").c_str(), 0640), 0);
    const std::vector<PortListing> ports = ListPorts({});
    ASSERT_EQ(ports.size(), 2U);
    EXPECT_EQ(ports[0].name, "gpio:chip=/dev/gpiochip0");
    EXPECT_TRUE(ports[0].permissions.starts_with("rw-r----- ")) << ports[0].permissions;
    EXPECT_EQ(ports[0].claim, PortClaim::NotTried);
    EXPECT_EQ(ports[0].remarks, "pinctrl-fake, lines 0 to 53; held: GPIO4 by led0");
    EXPECT_EQ(ports[1].remarks, "expander, lines 0 to 1");
    EXPECT_EQ(chip.Count(request), 0);
}

}  // namespace
}  // namespace vx3260::test
