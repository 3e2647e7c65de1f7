// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/FtdiLines.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "link/BoardCheck.h"
#include "link/ReadData.h"
#include "link/Register.h"
#include "ports/LinePort.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

constexpr std::int16_t base = 888;

/// The pins of a chip that the simulated board is wired to as the wiring table has it.
class FakePins final : public PinExchange {
  public:
    struct Chip {
        SimulatedBoard board;
        unsigned opened = 0;                 ///< the outputs
        int address = 0;                     ///< of the device that was opened
        std::vector<std::size_t> exchanges;  ///< their bytes
        int exchangesLeft = 1 << 30;
        bool refuses = false;
        std::size_t silentUntil = 0;  ///< RDY is high before this exchange, and low in it
    };

    explicit FakePins(Chip& chip) : chip_(chip) {}

    bool Open(const FtdiDevice& device, std::uint8_t outputs) override {
        chip_.address = device.address;
        chip_.opened = outputs;
        return !chip_.refuses;
    }
    bool Exchange(std::span<const std::uint8_t> bytes, std::span<std::uint8_t> samples) override {
        chip_.exchanges.push_back(bytes.size());
        if (--chip_.exchangesLeft < 0) {
            return false;
        }
        std::ranges::transform(bytes, samples.begin(), [this](std::uint8_t b) { return Step(b); });
        return true;
    }
    std::string Failure() const override { return "usb bulk write failed"; }

  private:
    /// Time passes faster on the board while the clock rests.
    std::uint8_t Step(unsigned byte) {
        unsigned status = chip_.board.Read(1);
        const bool silent = chip_.exchanges.size() < chip_.silentUntil;
        const bool falls = chip_.exchanges.size() == chip_.silentUntil;
        for (int i = 0;
             i < 50 && !silent && !falls && (pins_ & 0x01U) != 0 && (status & 0x40U) != 0; ++i) {
            status = chip_.board.Read(1);
        }
        const unsigned sample = (pins_ & 0x15U) | ((status & 0x10U) != 0 ? 0x02U : 0U) |
                                (((status & 0x40U) != 0 && !falls) || silent ? 0x08U : 0U);
        pins_ = byte;
        chip_.board.Write(0, static_cast<std::uint8_t>(0x10U | ((byte & 0x01U) != 0 ? 0x08U : 0U) |
                                                       ((byte & 0x04U) != 0 ? 0x01U : 0U) |
                                                       ((byte & 0x10U) != 0 ? 0x02U : 0U)));
        return static_cast<std::uint8_t>(sample);
    }

    Chip& chip_;
    unsigned pins_ = 0x11;
};

class Ftdi : public testing::Test {
  protected:
    static std::vector<FtdiDevice> Devices(const std::vector<std::string>& serials) {
        std::vector<FtdiDevice> devices;
        devices.reserve(serials.size());
        for (const std::string& serial : serials) {
            const std::uint8_t address = static_cast<std::uint8_t>(4 + devices.size());
            devices.push_back({serial, "FT232R USB UART", 1, address,
                               "/dev/bus/usb/001/00" + std::to_string(address)});
        }
        return devices;
    }

    std::unique_ptr<LinePort> Open(const std::string& choice = "ftdi:",
                                   const std::vector<std::string>& serials = {"VX000001"},
                                   bool built = true) {
        const LineChoice lines = ParseLineChoice(choice);
        return std::make_unique<LinePort>(
            std::make_unique<FtdiLines>(lines, Devices(serials),
                                        built ? std::make_unique<FakePins>(chip) : nullptr),
            lines.lines, std::chrono::nanoseconds(0));
    }

    /// A claim resets the converter, which converts nothing then.
    std::unique_ptr<LinePort> Claimed() {
        std::unique_ptr<LinePort> port = Open();
        EXPECT_EQ(port->ClaimParallelPort(1, -1), 1) << port->FailureDetail();
        for (const unsigned address : {mainControlAt, auxControlAt, modeAt}) {
            chip.board.Chip().Preset(address, SimulatedBoard().Chip().Contents(address));
        }
        chip.exchanges.clear();
        state.PortAddress = base;
        return port;
    }

    FakePins::Chip chip;
    ApplicationState state;
};

TEST_F(Ftdi, ClaimsItsOutputsAndResetsTheConverter) {
    chip.board.Chip().Preset(ioControlAt, 0x1234);
    const auto port = Claimed();
    EXPECT_EQ(chip.opened, 0x15U) << "TXD, RTS and DTR";
    EXPECT_EQ(port->Name(), "FTDI VX000001");
    EXPECT_NE(chip.board.Chip().Contents(ioControlAt), 0x1234U);
    Register reg(*port, state.PortAddress, RegisterMap::IOControl);
    reg.RegValue = static_cast<std::int32_t>(reg.ReadReg()) ^ 0x11;
    reg.WriteReg();
    EXPECT_EQ(reg.ReadReg(), reg.RegValue);
    EXPECT_EQ(CheckBoard(*port, state.PortAddress).verdict, BoardVerdict::Answers);
}

TEST_F(Ftdi, SendsAWordInOneExchange) {
    const auto port = Claimed();
    Register mode(*port, state.PortAddress, RegisterMap::Mode);
    mode.ReadReg();
    EXPECT_EQ(chip.exchanges, (std::vector<std::size_t>{62, 62})) << "the byte, then the word";
    chip.exchanges.clear();
    const std::int32_t code =
        static_cast<std::int32_t>(ReadData(*port, state.PortAddress, RegisterMap::MainData).Read());
    EXPECT_EQ(static_cast<std::uint32_t>(code), chip.board.Chip().Contents(5));
    EXPECT_NE(code, 0);
    EXPECT_TRUE(std::ranges::all_of(chip.exchanges, [](std::size_t n) { return n == 62; }));
    std::vector<PortTransfer> many(140, {base, 0x1A, true});
    many.push_back({base + 1, 0, false});
    many.push_back({base + 1, 0, false});
    chip.exchanges.clear();
    port->Transfer(many);
    EXPECT_EQ(chip.exchanges, (std::vector<std::size_t>{124, 62})) << "the chip's buffers";
    EXPECT_EQ(many[140].value, many[141].value);
}

TEST_F(Ftdi, LimitsTheWaitByTime) {
    const auto port = Claimed();
    chip.silentUntil = 1U << 30U;
    EXPECT_FALSE(port->WaitForLow(base + 1, 0x40, 50000));
    EXPECT_GE(chip.exchanges.size(), 10U) << "in 200 ms, each far below one here";
    chip.exchanges.clear();
    chip.silentUntil = 25;
    EXPECT_TRUE(port->WaitForLow(base + 1, 0x40, 10000000));
    EXPECT_EQ(chip.exchanges.size(), 25U);
}

TEST_F(Ftdi, ReportsWhyItCannotBeUsed) {
    const std::tuple<const char*, std::vector<std::string>, const char*> cases[] = {
        {"ftdi:", {}, "No FTDI device is connected."},
        {"ftdi:",
         {"A1", "B2"},
         "There are several FTDI devices: A1 (FT232R USB UART, /dev/bus/usb/001/004), B2 (FT232R "
         "USB UART, /dev/bus/usb/001/005). Choose one: --port ftdi:serial=A1"},
        {"ftdi:serial=A1",
         {"A1", "A1"},
         "There are several FTDI devices: A1 (FT232R USB UART, /dev/bus/usb/001/004), A1 (FT232R "
         "USB UART, /dev/bus/usb/001/005). Choose one: --port ftdi:device=/dev/bus/usb/001/004"},
        {"ftdi:",
         {"", ""},
         "There are several FTDI devices: no serial number (FT232R USB UART, "
         "/dev/bus/usb/001/004), no serial number (FT232R USB UART, /dev/bus/usb/001/005). Choose "
         "one: --port ftdi:device=/dev/bus/usb/001/004"},
        {"ftdi:device=/dev/bus/usb/001/009",
         {"A1"},
         "There is no FTDI device at /dev/bus/usb/001/009; connected: A1 (FT232R USB UART, "
         "/dev/bus/usb/001/004)."},
        {"ftdi:serial=C3",
         {"A1"},
         "There is no FTDI device with the serial number C3; connected: A1 (FT232R USB UART, "
         "/dev/bus/usb/001/004)."},
        {"ftdi:rdy=CST",
         {"A1"},
         "FTDI chips have the pins TXD, RXD, RTS, CTS, DTR, DSR, DCD and RI, and no CST; did you "
         "mean CTS?"},
    };
    for (const auto& [choice, serials, detail] : cases) {
        const auto port = Open(choice, serials);
        EXPECT_EQ(port->ClaimParallelPort(1, -1), 0);
        EXPECT_EQ(port->FailureDetail(), detail);
    }
    const auto without = Open("ftdi:", {"A1"}, false);
    EXPECT_EQ(without->ClaimParallelPort(1, -1), 0);
    EXPECT_TRUE(without->FailureDetail().starts_with("This program was built without libftdi1"));
    chip.refuses = true;
    const auto refused = Open();
    EXPECT_EQ(refused->ClaimParallelPort(1, -1), 0);
    EXPECT_TRUE(refused->FailureDetail().find("usb bulk write failed") != std::string::npos);
}

TEST_F(Ftdi, ChoosesAmongDevicesWithoutSerialNumbersByThePath) {
    const auto port = Open("ftdi:device=/dev/bus/usb/001/005", {"", ""});
    ASSERT_EQ(port->ClaimParallelPort(1, -1), 1) << port->FailureDetail();
    EXPECT_EQ(chip.address, 5);
    EXPECT_EQ(port->Name(), "FTDI /dev/bus/usb/001/005");
    EXPECT_THROW(ParseLineChoice("ftdi:serial=A1,device=/dev/bus/usb/001/005"),
                 std::invalid_argument);
}

TEST_F(Ftdi, ReadsOpenLinesOnceItIsUnplugged) {
    const auto port = Claimed();
    chip.exchangesLeft = 20;
    EXPECT_EQ(ReadBlockFrom(*port, state, Converter::Main, 50), ReadingEnd::TimedOut);
    EXPECT_EQ(chip.exchanges.size(), 21U) << "kept trying";
    EXPECT_EQ(port->InByte(base + 1), 0xFF);
    EXPECT_EQ(port->FailureDetail(),
              "FTDI VX000001 stopped working: usb bulk write failed. Plug it in again "
              "and start the program again.");
}

TEST(FtdiDevices, AreFoundWithoutOpeningThem) {
    const std::string folder = testing::TempDir() + "usb" + std::to_string(getpid());
    const std::pair<const char*, std::vector<const char*>> devices[] = {
        {"1-1", {"0403", "6001", "VX000001", "FT232R USB UART", "1", "12"}},
        {"1-2", {"0403", "ffff", "X", "Scope", "1", "13"}},
        {"usb1", {"1d6b", "6001", "", "Hub", "1", "1"}},
    };
    for (const auto& [name, values] : devices) {
        std::filesystem::create_directories(folder + "/" + name);
        const char* const files[] = {"idVendor", "idProduct", "serial",
                                     "product",  "busnum",    "devnum"};
        for (std::size_t i = 0; i < values.size(); ++i) {
            std::ofstream(folder + "/" + name + "/" + files[i]) << values[i] << '\n';
        }
    }
    const std::vector<FtdiDevice> found = FindFtdiDevices(folder);
    std::filesystem::remove_all(folder);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].serial, "VX000001");
    EXPECT_EQ(found[0].product, "FT232R USB UART");
    EXPECT_EQ(found[0].address, 12);
    EXPECT_EQ(found[0].path, "/dev/bus/usb/001/012");
}

}  // namespace
}  // namespace vx3260::test
