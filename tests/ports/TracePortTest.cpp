// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/TracePort.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#if defined(__linux__)
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#endif

#include "app/ApplicationInfo.h"
#include "link/Reset.h"
#include "link/Serial.h"
#include "numbers/FilePath.h"
#include "ports/OpenPort.h"
#include "support/RecordingPort.h"

namespace vx3260::test {
namespace {

using std::chrono::microseconds;
using Texts = std::vector<std::string>;

constexpr std::int16_t base = 888;

class Trace : public testing::Test {
  protected:
    ~Trace() override { std::filesystem::remove(FilePath(path)); }

    /// Each access of the bare wires takes 10 us.
    struct SlowPort : RecordingPort {
        std::chrono::nanoseconds Now() const override {
            return microseconds(10) * (written.size() + readFrom.size());
        }
    };

    std::unique_ptr<TracePort> Open() {
        auto bare = std::make_unique<SlowPort>();
        wires = bare.get();
        wires->standingReply = 0x40;
        return std::make_unique<TracePort>(std::move(bare), path, portAddress);
    }

    std::string Bytes() const {
        std::ifstream file(FilePath(path), std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

    /// What the pattern's group matched, each time; escaped spaces are spaces there.
    Texts Found(const std::string& pattern) const {
        const std::string bytes = std::regex_replace(Bytes(), std::regex(R"(\\040)"), " ");
        const std::regex regex(pattern);
        return {std::sregex_token_iterator(bytes.begin(), bytes.end(), regex, 1), {}};
    }
    Texts Accesses() const { return Found("\ns(.+) &"); }
    std::int64_t End() const { return std::stoll(Found("#(.+)\n$").at(0)); }

    const std::string path = testing::TempDir() + "trace ä 測 " + std::to_string(getpid()) + ".vcd";
    std::int16_t portAddress = base;
    RecordingPort* wires = nullptr;
};

TEST_F(Trace, ShowsEveryChangeAndNothingElse) {
    const auto port = Open();
    SerialWrite(*port, 0b10, base, 2);
    wires->replies = {0x10};
    SerialRead(*port, 1, base);
    port->OutByte(base + 2, 0);   // has no line to the board
    port->OutByte(base + 10, 0);  // of another port
    port->OutByte(base, 0x0A);    // only the line that is held high
    std::ifstream file(FilePath(EXPECTED_TRACE), std::ios::binary);
    const std::string expected{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(Bytes(), "$version VX3260 Evaluation Software " + std::string(VersionText) +
                           " $end\n" + expected);
}

TEST_F(Trace, FollowsTheAddressInUseAndNeverAsksForIt) {
    portAddress = 0;
    const auto port = Open();
    SerialWrite(*port, 0x41, 0, 8);
    EXPECT_EQ(Accesses(), Texts{}) << "there is no port yet";
    for (const std::int16_t address : {base, std::int16_t{632}}) {
        portAddress = address;
        SerialWrite(*port, 0x41, address, 8);
        SerialWrite(*port, 0x03, address == base ? 632 : base, 8);
        SerialRead(*port, 8, address);
    }
    EXPECT_EQ(Accesses(), (Texts{"read mode", "read mode = 00", "read mode", "read mode = 00"}));
    EXPECT_TRUE(wires->infoCalls.empty());
}

/// A port that makes a transfer at once, in 1 ms, and sleeps through a wait of 5 ms.
struct BatchPort final : RecordingPort {
    std::chrono::nanoseconds Now() const override { return now; }
    void Transfer(std::span<PortTransfer> accesses) override {
        ++transfers;
        now += std::chrono::milliseconds(1);
        ParallelPort::Transfer(accesses);
    }
    bool TransfersAtOnce() const override { return true; }
    bool WaitForLow(std::int16_t /*address*/, std::int16_t mask, std::int32_t polls) override {
        waits.emplace_back(mask, polls);
        now += std::chrono::milliseconds(5);
        standingReply = 0x10;
        return true;
    }
    bool WaitsWithoutReading() const override { return true; }

    std::chrono::nanoseconds now{0};
    int transfers = 0;
    std::vector<std::pair<int, int>> waits;
};

TEST_F(Trace, PassesTransfersAndWaitsOn) {
    auto bare = std::make_unique<BatchPort>();
    BatchPort& batch = *bare;
    const auto port = std::make_unique<TracePort>(std::move(bare), path, portAddress);
    SerialWrite(*port, 0x41, base, 8);
    EXPECT_EQ(batch.transfers, 1);
    EXPECT_EQ(Accesses(), Texts{"read mode"});
    // 25 accesses in 1000 us, 3 a bit: the second lowers the clock and the third raises it.
    const Texts steps = Found("#(.+)\n[01]!");
    EXPECT_EQ((Texts{steps.at(0), steps.at(1), steps.at(2)}), (Texts{"80", "120", "200"}));
    EXPECT_EQ(SerialReadWhenReady(*port, 8, base), 0xFF);
    EXPECT_EQ(batch.transfers, 2);
    EXPECT_EQ(batch.waits, (std::vector<std::pair<int, int>>{{0x40, PollLimit - 1}}));
    EXPECT_EQ(batch.readFrom.size(), 9U) << "8 bits, and RDY once after the wait";
    EXPECT_EQ(Found("#(.+)\n1\\$\n0%"), Texts{"6000"}) << "RDY is low";
    EXPECT_EQ(Accesses(), (Texts{"read mode", "read mode = FF"}));
}

TEST_F(Trace, NamesEachAccess) {
    struct {
        std::int32_t byte;
        std::int32_t value;
        std::int16_t bits;
        std::string access;
        std::string word;
    } const cases[] = {
        {0x40, 0xC1, 8, "read status", " = C1"},
        {0x01, 0x03, 8, "write mode", " = 03"},
        {0x45, 0x80C10F, 24, "read main-data", " = 80C10F"},
        {0x46, 0x1EEC, 16, "read aux-data", " = 1EEC"},
        {0x07, 0x0004, 16, "write io-control", " = 0004"},
        {0x0A, 0x400000, 24, "write main-full", " = 400000"},
        {0x4B, 0x0001, 16, "read aux-full", " = 0001"},
        {0x0C, 0x0000, 16, "write test1", " = 0000"},
        {0x0D, 0xFFFF, 16, "write test2", " = FFFF"},
        {0x00, 0, 0, "unknown byte 00", ""},
        {0x4C, 0, 0, "unknown byte 4C", ""},
        {0x05, 0, 0, "unknown byte 05", ""},
        {0xC1, 0, 0, "unknown byte C1", ""},
    };
    const auto port = Open();
    Texts expected;
    for (const auto& c : cases) {
        SerialWrite(*port, c.byte, base, 8);
        expected.push_back(c.access);
        EXPECT_EQ(Accesses(), expected);
        if (c.access.starts_with("read")) {
            for (int bit = c.bits - 1; bit >= 0; --bit) {
                wires->replies.push_back((c.value >> bit & 1) != 0 ? 0x50 : 0x40);
            }
            SerialRead(*port, c.bits, base);
        } else {
            SerialWrite(*port, c.value, base, c.bits);
        }
        if (c.bits != 0) {
            expected.push_back(c.access + c.word);
        }
        EXPECT_EQ(Accesses(), expected);
    }
}

TEST_F(Trace, LongWaitProducesOneChange) {
    auto port = Open();
    wires->replies.assign(PollLimit - 2, 0x40);
    wires->standingReply = 0x00;
    SerialReadWhenReady(*port, 0, base);
    EXPECT_EQ(Found("\n(.)%"), (Texts{"x", "1", "0"}));
    EXPECT_EQ(End(), 1000001);
    wires->standingReply = 0x40;
    port->InByte(base + 1);
    port->InByte(base + 1);
    port.reset();
    EXPECT_EQ(End(), 1000020) << "the last wait";
}

TEST_F(Trace, ShowsResetsInTheMiddleOfAnAccess) {
    const auto port = Open();
    SerialWrite(*port, 0x08, base, 8);
    SerialWrite(*port, 0xFFFF, base, 16);
    HardwareReset(*port, base);
    SerialWrite(*port, 0x48, base, 8);
    SoftwareReset(*port, base);
    EXPECT_EQ(Accesses(), (Texts{"write main-zero", "hardware reset", "read main-zero",
                                 "hardware reset", "software reset", "write test1",
                                 "write test1 = 0000", "write test2", "write test2 = 0000"}));
}

TEST_F(Trace, SoftwareResetTakes32Ones) {
    const std::tuple<std::int16_t, int, Texts> cases[] = {
        {2, 31, {"write main-full = 3FFFFF", "unknown byte FF", "unknown byte A2"}},
        {4, 32, {"write main-full = 0FFFFF", "unknown byte FF", "software reset", "read filter"}},
    };
    for (const auto& [zeros, ones, accesses] : cases) {
        const auto port = Open();
        SerialWrite(*port, 0x0A, base, 8);
        SerialWrite(*port, 0, base, zeros);
        for (int i = 0; i < ones; ++i) {
            SerialWrite(*port, 1, base, 1);
        }
        SerialWrite(*port, 0x44, base, 8);
        Texts found = Accesses();
        found.erase(found.begin());
        EXPECT_EQ(found, accesses);
    }
}

TEST_F(Trace, SimulatedBoardIsCompleteAtAnyMoment) {
    const OpenedPort board = OpenPort(
        {.simulated = true, .faults = {.statusLow = 0x10, .goneAfter = 60}, .traceFile = path},
        base);
    SerialWrite(*board.port, 0x41, base, 8);
    SerialRead(*board.port, 8, base);
    EXPECT_EQ(Accesses(), (Texts{"read mode", "read mode = 00"}));
    EXPECT_EQ(End(), 50 * 4 + 1);
    for (int clock = 0; clock < 12; ++clock) {
        const std::int64_t before = End();
        board.port->OutByte(base, clock % 2 != 0 ? 0x1A : 0x12);
        EXPECT_EQ(Found("\n(.)!").back(), std::to_string(clock % 2));
        EXPECT_GT(End(), before);
    }
    EXPECT_EQ(End(), 60 * 4 + 1 + 2) << "a board that is gone has no time";
}

#if defined(__linux__)

/// Ends the forked process, with success if the accesses after the disk was full reached the wires.
[[noreturn]] void TraceOnFullDisk(ParallelPort& port, const RecordingPort& wires, rlim_t bytes) {
    const rlimit limit{bytes, bytes};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &limit);
    for (int i = 0; i < 100; ++i) {
        SerialWrite(port, 0x41, base, 8);
    }
    std::_Exit(wires.written.size() == 2500 ? EXIT_SUCCESS : EXIT_FAILURE);
}

TEST_F(Trace, FullDiskEndsItAfterACompleteStepAndThePortGoesOn) {
    for (rlim_t bytes = 600; bytes < 615; ++bytes) {
        const auto port = Open();
        EXPECT_EXIT(TraceOnFullDisk(*port, *wires, bytes), testing::ExitedWithCode(EXIT_SUCCESS),
                    "^The trace ends here: cannot write .*vcd: File too large\n$");
        EXPECT_GT(Bytes().size(), bytes - 40);
        EXPECT_EQ(Found("[!\"&]\n(#.+)1\n$").size(), 1U) << Bytes().substr(500);
    }
}

#endif

}  // namespace
}  // namespace vx3260::test
