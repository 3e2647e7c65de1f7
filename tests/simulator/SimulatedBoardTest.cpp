// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/SimulatedBoard.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "analysis/NoiseStatistics.h"
#include "link/DataReady.h"
#include "link/Serial.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

constexpr std::int16_t base = 888;
constexpr double fullScale = 2.56;
constexpr double half = 8388608;

class BoardTest : public testing::Test {
  protected:
    std::int32_t Read(int address, std::int16_t bits) {
        SerialWrite(*bench.port, 0x40 + address, base, 8);
        return SerialRead(*bench.port, bits, base);
    }
    void Write(int address, std::int32_t value, std::int16_t bits) {
        SerialWrite(*bench.port, address, base, 8);
        SerialWrite(*bench.port, value, base, bits);
    }
    std::int32_t ReadResult(int address, std::int16_t bits) {
        SerialWrite(*bench.port, 0x40 + address, base, 8);
        return SerialReadWhenReady(*bench.port, bits, base);
    }
    std::int32_t ReadMain() { return ReadResult(5, 24); }
    std::int32_t ReadAux() { return ReadResult(6, 16); }
    bool ReadyLow() { return (bench.port->InByte(base + 1) & 0x40) == 0; }

    /// Polls until data-ready is low; the virtual milliseconds that took.
    double MillisecondsToReady() {
        const std::int64_t start = bench.board->Now();
        WaitForReady(*bench.port, base, 1000000);
        return static_cast<double>(bench.board->Now() - start) / 1e6;
    }

    SimulatedBench bench;
};

TEST_F(BoardTest, HoldsItsRegistersAtStartAndAfterBothResets) {
    using Contents = std::vector<std::int32_t>;
    const auto contents = [this] {
        return Contents{Read(1, 8),  Read(2, 8),  Read(3, 8),   Read(4, 8),  Read(7, 16),
                        Read(8, 24), Read(9, 16), Read(10, 24), Read(11, 16)};
    };
    // P3, an input, reads high.
    const Contents atStart{0x03, 0x87, 0xB9, 0x45, 0x0004, 0x800000, 0x8000, 0x400000, 0x4000};
    const Contents afterReset{0x00, 0x07, 0x01, 0x45, 0x0004, 0x800000, 0x8000, 0x400000, 0x4000};
    EXPECT_EQ(contents(), atStart);
    bench.port->OutByte(base, 0x18);
    bench.port->OutByte(base, 0x1A);
    EXPECT_EQ(contents(), afterReset);
    Write(1, 0x33, 8);
    SerialWrite(*bench.port, 0x45, base, 8);  // out of step: the chip waits for 24 clocks
    EXPECT_NE(Read(1, 8), 0x33);
    SerialWrite(*bench.port, -1, base, 31);  // ones alone, without the pulses on the reset line
    SerialWrite(*bench.port, 1, base, 1);
    EXPECT_EQ(contents(), afterReset);
}

TEST_F(BoardTest, AcceptsWritesWhereTheModeAllows) {
    const std::tuple<int, std::int16_t, std::int32_t, std::int32_t> cases[] = {
        {4, 8, 0x0D, 0x45},          {8, 24, 0x123456, 0x800000}, {9, 16, 0x1234, 0x8000},
        {10, 24, 0x54321, 0x400000}, {11, 16, 0x4321, 0x4000},    {2, 8, 0x5A, 0x5A},
        {3, 8, 0xFE, 0xFE},          {7, 16, 0xFFFB, 0xFFFB},
    };
    for (const auto& [address, bits, value, readInMode1] : cases) {
        Write(1, 0x01, 8);
        Write(address, value, bits);
        EXPECT_EQ(Read(address, bits), readInMode1) << address;
        Write(1, 0x00, 8);
        Write(address, value, bits);
        EXPECT_EQ(Read(address, bits), value) << address;
    }
    Write(7, 0x000F, 16);  // P3 and P4 as inputs show their levels, high and low
    EXPECT_EQ(Read(7, 16), 0x0007);
}

TEST_F(BoardTest, IgnoresOtherBytesThanCommands) {
    for (const int byte : {0x00, 0x81, 0x61, 0x51, 0x4C, 0x4E, 0x0F, 0xC1}) {
        SerialWrite(*bench.port, byte, base, 8);
        EXPECT_EQ(Read(1, 8), 0x03) << byte;
    }
    bench.port->OutByte(base + 2, 0x24);  // the data lines are inputs now
    Write(1, 0x00, 8);
    bench.port->OutByte(base + 2, 0x04);
    EXPECT_EQ(Read(1, 8), 0x03);
}

TEST_F(BoardTest, AnnouncesResultsAtTheUpdateRate) {
    EXPECT_NEAR(MillisecondsToReady(), 50.5, 0.1);
    EXPECT_EQ(Read(0, 8), 0xC1);  // RDY0, RDY1, LOCK
    ReadMain();
    EXPECT_TRUE(ReadyLow());
    EXPECT_EQ(Read(0, 8), 0x41);
    ReadAux();
    EXPECT_FALSE(ReadyLow());
    EXPECT_EQ(Read(0, 8), 0x01);
    Write(3, 0x01, 8);  // main alone
    EXPECT_NEAR(MillisecondsToReady(), 50.5, 0.1);
    Write(2, 0x87, 8);  // a write discards the result and starts the period anew
    EXPECT_FALSE(ReadyLow());

    Write(1, 0x00, 8);
    Write(4, 0xFF, 8);
    Write(1, 0x03, 8);
    EXPECT_NEAR(MillisecondsToReady(), 186.8, 0.2);
    Write(1, 0x02, 8);  // one conversion, then idle
    EXPECT_NEAR(MillisecondsToReady(), 186.8, 0.2);
    EXPECT_EQ(Read(1, 8), 0x01);
    ReadMain();
    EXPECT_EQ(ReadMain(), ReadTimeout);
}

TEST_F(BoardTest, ConvertsTheInputOfEachChannel) {
    const std::tuple<int, int, double> main[] = {
        {0x03, 0x87, 0.010}, {0x03, 0x97, 0.020}, {0x03, 0xA7, 0}, {0x03, 0xB7, -1.0},
        {0x13, 0x87, 1.030}, {0x13, 0x97, 0.020}, {0x13, 0xA7, 0}, {0x13, 0xB7, 1.020}};
    for (const auto& [mode, control, volts] : main) {
        Write(3, 0x01, 8);
        Write(1, mode, 8);
        Write(2, control, 8);
        EXPECT_NEAR(ReadMain(), half + (volts * 0.996 / fullScale + 0.002) * half, 200) << control;
    }
    Write(1, 0x03, 8);
    Write(2, 0x8F, 8);
    EXPECT_NEAR(ReadMain(), (0.010 * 0.996 / fullScale + 0.002) * 2 * half, 200) << "unipolar";
    const std::tuple<int, int, double> aux[] = {
        {0x03, 0x89, 1.5 / 2.5}, {0x03, 0x99, 1.48 / 2.5},
        {0x03, 0xA9, 0.6 / 2.5}, {0x03, 0xB9, 0.29815 / 2.5},
        {0x03, 0xC9, 0},         {0x13, 0x89, 0.9 / 2.5},
        {0x13, 0x99, 0.3 / 2.5}, {0x03, 0xB8, 0.29815 / 1.25},
        {0x03, 0xF9, 0}};
    Write(2, 0x07, 8);
    for (const auto& [mode, control, partOfScale] : aux) {
        Write(1, mode, 8);
        Write(3, control, 8);
        EXPECT_NEAR(ReadAux(), (partOfScale * 0.996 + 0.002) * 65536, 4) << control;
    }
}

TEST_F(BoardTest, ClampsAndFlagsWhatIsOverRange) {
    Write(2, 0x80, 8);  // 10 mV are inside the 20 mV range, -1 V is not
    ReadAux();
    ReadMain();
    EXPECT_EQ(Read(0, 8) & 0x0C, 0);
    Write(2, 0xB0, 8);
    EXPECT_EQ(ReadMain(), 0);
    EXPECT_EQ(Read(0, 8) & 0x0C, 0x08);
    Write(2, 0xC7, 8);  // 16-bit words leave the low byte empty
    EXPECT_EQ(ReadMain() & 0xFF, 0);
    Write(3, 0x88, 8);  // 1.5 V at 1.25 V full scale
    EXPECT_EQ(ReadAux(), 0xFFFF);
    EXPECT_EQ(Read(0, 8) & 0x0C, 0x04);
}

TEST_F(BoardTest, CalibrationRemovesItsErrors) {
    const auto calibrate = [this](int mode) {
        Write(1, mode, 8);
        EXPECT_EQ(Read(0, 8), 0x21) << mode;  // CAL, LOCK
        EXPECT_NEAR(MillisecondsToReady(), 151.6, 1.0) << mode;
        EXPECT_EQ(Read(1, 8) & 0x07, 0x01) << mode;
        EXPECT_EQ(Read(0, 8) & 0x20, 0) << mode;
    };
    Write(3, 0x01, 8);
    calibrate(4);
    calibrate(5);
    EXPECT_EQ(Read(9, 16), 0x8000);  // the aux converter was not enabled
    EXPECT_NEAR(Read(8, 24), 0x800000 + 0.002 * half, 200);
    EXPECT_NEAR(Read(10, 24), 0x400000 / 0.996, 200);
    Write(1, 0x03, 8);
    EXPECT_NEAR(ReadMain(), half + 0.010 / fullScale * half, 200);
    calibrate(6);  // the 10 mV at the input become zero
    Write(1, 0x03, 8);
    EXPECT_NEAR(ReadMain(), half, 200);
    calibrate(0x17);  // and 1.03 V full scale
    Write(1, 0x13, 8);
    EXPECT_NEAR(ReadMain(), 2 * half, 400);
}

TEST_F(BoardTest, IsNoisierInWideRangesAndAtHighRates) {
    const std::tuple<std::uint32_t, double, std::uint32_t, double> cases[] = {
        {0xA0, 0.02, 0x45, 0.5e-6}, {0xA7, 2.56, 0x45, 4.0e-6}, {0xA7, 2.56, 0x11, 8.06e-6}};
    bench.Chip().Preset(auxControlAt, 0x01);
    for (const auto& [control, range, filterWord, noiseVolts] : cases) {
        bench.Chip().Preset(mainControlAt, control);
        bench.Chip().Preset(filterAt, filterWord);
        std::vector<double> codes(400);
        std::generate(codes.begin(), codes.end(), [this] { return ReadMain(); });
        const double sigma = ComputeExactStatistics(codes).sigma * range / half;
        // The standard error of the deviation of 400 readings is 3.5 %; the bounds are five times
        // that.
        EXPECT_NEAR(sigma, noiseVolts, 0.175 * noiseVolts);
    }
}

}  // namespace
}  // namespace vx3260::test
