// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigurationFile.h"

#include <gtest/gtest.h>

#include <random>

#include "configuration/FirmwareExport.h"
#include "numbers/FileErrors.h"
#include "support/Errors.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

constexpr unsigned settable[] = {modeAt,         mainControlAt,   auxControlAt,
                                 filterAt,       ioControlAt,     mainZeroScaleAt,
                                 auxZeroScaleAt, mainFullScaleAt, auxFullScaleAt};
constexpr std::uint32_t pinLevels = 0x0C;

class ConfigurationFileTest : public testing::Test {
  protected:
    Configuration Read() { return ReadConfiguration(*bench.port, bench.state.PortAddress); }

    std::vector<RestoredRegister> Restore(const Configuration& configuration) {
        return RestoreConfiguration(*bench.port, bench.state.PortAddress, configuration);
    }

    /// Of the simulated chip, without the levels of input pins.
    std::vector<std::uint32_t> Contents() {
        std::vector<std::uint32_t> contents;
        for (const unsigned address : settable) {
            const std::uint32_t levels = address == ioControlAt ? pinLevels : 0;
            contents.push_back(bench.Chip().Contents(address) & ~levels);
        }
        return contents;
    }

    /// Settings that the chip keeps: any, except that a filter word is 13 or more and that it does
    /// not calibrate.
    void Shuffle() {
        for (const unsigned address : settable) {
            auto value = static_cast<std::uint32_t>(random());
            value = address == filterAt ? 13 + (value % 243) : value;
            value = address == modeAt ? value & 0xFBU : value;
            bench.Chip().Preset(address, value);
        }
        // A single conversion would end in between.
        if ((bench.Chip().Contents(modeAt) & 7U) == RegisterMap::SingleConversion) {
            bench.Chip().Preset(modeAt, 1);
        }
    }

    std::string Save(Coefficients coefficients = Coefficients::Include) {
        return ConfigurationText(Read(), {}, coefficients);
    }

    SimulatedBench bench;
    std::mt19937 random{26};
};

/// The bits that have names: others keep what they are.
void ClearBitsWithoutNames(SimulatedBench& bench) {
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        std::int32_t named = 0;
        for (const RegisterMap::Field& field : description.fields) {
            named |= field.mask;
        }
        const auto address =
            static_cast<unsigned>(RegisterMap::AddressIn(description.access.readByte));
        if (address != statusAt) {
            bench.Chip().Preset(address,
                                bench.Chip().Contents(address) & static_cast<unsigned>(named));
        }
    }
}

TEST_F(ConfigurationFileTest, RestoresWhatWasSaved) {
    for (int i = 0; i < 100; ++i) {
        Shuffle();
        ClearBitsWithoutNames(bench);
        const std::vector<std::uint32_t> before = Contents();
        const std::string text = Save();
        Shuffle();
        ClearBitsWithoutNames(bench);
        const std::vector<std::uint32_t> shuffled = Contents();
        const Configuration saved = ParseConfiguration(text, "x");
        EXPECT_EQ(DifferencesBetween(saved, Read()).empty(), shuffled == before);
        EXPECT_TRUE(MismatchesIn(Restore(saved)).empty());
        EXPECT_EQ(Contents(), before) << text;
        EXPECT_TRUE(DifferencesBetween(saved, Read()).empty());
    }
}

TEST_F(ConfigurationFileTest, WritesInPowerDownAndTheModeLast) {
    const Configuration saved = ParseConfiguration(Save(), "x");
    bench.port->writes.clear();
    Restore(saved);
    std::vector<std::string> names;
    for (const std::string& write : bench.port->writes) {
        if (const std::size_t equals = write.find(" = "); equals != std::string::npos) {
            names.push_back(write.substr(6, equals - 6));
        }
    }
    EXPECT_EQ(names, (std::vector<std::string>{"mode", "filter", "main-zero", "aux-zero",
                                               "main-full", "aux-full", "main-control",
                                               "aux-control", "io-control", "mode"}));
    EXPECT_NE(bench.port->writes[1].find("mode = 00"), std::string::npos);
}

TEST_F(ConfigurationFileTest, LeavesOutWhatCannotBeSet) {
    const std::string all = Save();
    EXPECT_EQ(all.find("p3=") + all.find("p4="), 2 * std::string::npos);
    bench.Chip().Preset(ioControlAt, 0x0040);
    EXPECT_NE(Save().find("set io-control p3=low\n"), std::string::npos);
    EXPECT_EQ(Save(Coefficients::LeaveOut).find("main-zero"), std::string::npos);
    const Configuration calibrating{
        {RegisterMap::ReadableRegisters[1], RegisterMap::InternalZeroScale}};
    EXPECT_THROW(ConfigurationText(calibrating, {}, Coefficients::Include), BadDataError);
    bench.Chip().Preset(filterAt, 5);
    EXPECT_THROW(Save(), BadDataError);
}

TEST_F(ConfigurationFileTest, RefusesAFileWithItsLineAndReason) {
    const std::string good = Save();
    const struct {
        std::string replaced;
        std::string by;
        std::string reason;
    } cases[] = {
        {"set filter word=69\n", "", "x: the register filter is missing"},
        {"set main-control range=2.56V\n", "", "x: the field range of the register main-control"},
        {"word=69", "word=12", "x:11: '12' is not a valid value for word"},
        {"word=69", "word=0x145", "x:11: '0x145' is not a valid value for word"},
        {"range=2.56V", "range=3V", "is not a valid value for range"},
        {"set filter", "set fitler", "x:11: 'fitler' is not one of the registers"},
        {"set filter", "set status", "'status' is not one of the registers"},
        {"set filter word=69", "read main", "x:11: 'read main' is not \"set REGISTER"},
        {"set filter word=69", "set filter", "x:11: 'set filter' is not \"set REGISTER"},
        {"mode=continuous", "mode=single", "the chip leaves the mode single by itself"},
        {"mode=continuous", "mode=internal-zero", "which has a command of its own"},
        {"p3-direction=input", "p3-direction=output", "the field p3 of the register io-control"},
        {"set filter word=69", std::string(900000, 'x'), "xxx...' is not \"set REGISTER"},
        {"set filter word=69", "\x01", "x:11: binary data"},
    };
    for (const auto& [replaced, by, reason] : cases) {
        std::string text = good;
        text.replace(text.find(replaced), replaced.size(), by);
        const std::string message = ErrorOf<BadDataError>([&] { ParseConfiguration(text, "x"); });
        EXPECT_NE(message.find(reason), std::string::npos) << message.substr(0, 300);
        EXPECT_LT(message.size(), 400U);
    }
}

TEST(RestoreConfiguration, NamesTheFieldThatDiffers) {
    SimulatedBench bench("dout-stuck-low");
    const std::vector<RestoredRegister> restored = RestoreConfiguration(
        *bench.port, bench.state.PortAddress,
        {{RegisterMap::ReadableRegisters[2], 0x87}, {RegisterMap::ReadableRegisters[8], 0x400000}});
    const std::vector<RegisterMismatch> mismatches = MismatchesIn(restored);
    ASSERT_EQ(mismatches.size(), 2U);
    EXPECT_EQ(
        MismatchLines(mismatches[1]),
        (std::vector<std::string>{"main-control enable: expected on, found off (0x87, 0x00)",
                                  "main-control range: expected 2.56V, found 20mV (0x87, 0x00)"}));
    EXPECT_EQ(RestoreReport(restored, false),
              "Written and verified: none. Not verified: main-full, main-control. The chip may be "
              "left in power-down. ");
    EXPECT_NE(RestoreReport(restored, true).find("  main-full value: expected 0x400000, found"),
              std::string::npos);
}

TEST_F(ConfigurationFileTest, ExportsTheWritesInTheirOrder) {
    EXPECT_EQ(ExportText(Read(), {}, Coefficients::LeaveOut, ExportFormat::Csv),
              "order,register,address,width,value,fields\n"
              "1,mode,0x01,8,0x00,buffering=unbuffered chcon=cleared oscillator=on "
              "mode=power-down\n"
              "2,filter,0x04,8,0x45,word=69\n"
              "3,main-control,0x02,8,0x87,enable=on word-length=24 channel=ain1-ain2 "
              "polarity=bipolar range=2.56V\n"
              "4,aux-control,0x03,8,0xB9,enable=on channel=temperature polarity=unipolar "
              "reference=full\n"
              "5,io-control,0x07,16,0x0000,p2-function=output p1-function=output burnout=off "
              "iexc2-direction=iout2 iexc1-direction=iout1 iexc2=off iexc1=off p4-direction=input "
              "p3-direction=input p2-status=tri-state p1-status=tri-state p4=low p3=low p2=low "
              "p1=low\n"
              "6,mode,0x01,8,0x03,buffering=unbuffered chcon=cleared oscillator=on "
              "mode=continuous\n");
    const std::string header =
        ExportText(Read(), {.board = {.label = "*/"}}, Coefficients::Include, ExportFormat::C);
    EXPECT_NE(header.find(" */\n    {0x08, 24, 0x800000},\n"), std::string::npos) << header;
    EXPECT_NE(header.find("Board: * /\n"), std::string::npos);
    EXPECT_NE(header.find("VX3260_CONFIGURATION_COUNT 10\n"), std::string::npos);
}

}  // namespace
}  // namespace vx3260::test
