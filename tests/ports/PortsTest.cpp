// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>

#include "link/ReadData.h"
#include "link/Register.h"
#include "ports/OpenPort.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

TEST(Faults, ChangeWhatTheChipAnswers) {
    constexpr std::int32_t any = -1;
    const std::tuple<const char*, double, std::int32_t> cases[] = {
        {"dout-stuck-high", 0xFF, 0xFFFFFF},
        {"dout-stuck-low", 0, 0},
        {"sclk-stuck-high", 0xFF, 0xFFFFFF},
        {"sclk-stuck-low", 0xFF, 0xFFFFFF},
        {"din-stuck-low", 0xFF, 0xFFFFFF},
        {"rdy-stuck-high", 0x03, INT32_MIN},
        {"no-data-ready", 0x03, INT32_MIN},
        {"rdy-stuck-low", 0x03, 0},
        {"reset-stuck-low", 0xFF, INT32_MIN},
        {"board-gone=0", 0xFF, INT32_MIN},
        {"bit-flip=4", 0x12, any},
        {"din-stuck-high", 0xFF, 0xFFFFFF},
        {"reset-stuck-high", 0x03, any},
    };
    for (const auto& [fault, mode, code] : cases) {
        SimulatedBench bench(fault);
        Register reg(*bench.port, bench.state.PortAddress, RegisterMap::Mode);
        EXPECT_EQ(reg.ReadReg(), mode) << fault;
        if (code != any) {
            ReadData main(*bench.port, bench.state.PortAddress, RegisterMap::MainData);
            EXPECT_EQ(main.Read(), code) << fault;
        }
    }
}

TEST(Faults, AreFoundByTheirFullNameOnly) {
    for (const FaultDescription& known : KnownFaults()) {
        std::string name(known.name);
        std::replace(name.begin(), name.end(), 'N', '5');
        Faults faults;
        EXPECT_TRUE(AddFault(name, faults)) << name;
    }
    for (const char* name : {"", "rdy", "board-gone", "board-gone=", "board-gone=-1",
                             "board-gone=5x", "bit-flip=0", "RDY-STUCK-LOW"}) {
        Faults faults;
        EXPECT_FALSE(AddFault(name, faults)) << name;
        EXPECT_EQ(faults, Faults{}) << name;
    }
}

TEST(OpenPort, GivesTheBoardThatWasChosen) {
    const std::int16_t base = 888;
    const OpenedPort simulated = OpenPort({.simulated = true, .faults = {}}, base);
    EXPECT_EQ(simulated.boardLabel, "Simulated board");
    EXPECT_EQ(simulated.port->GetParallelPortCount(), 1);
    EXPECT_EQ(simulated.port->ClaimParallelPort(2, -1), 0);
    EXPECT_EQ(simulated.port->InByte(632), 255);

    const OpenedPort real = OpenPort({}, base);
    ParallelPortInfo info;
    EXPECT_EQ(real.boardLabel, "");
    EXPECT_EQ(real.port->ClaimParallelPort(1, -1), 0);
    EXPECT_EQ(real.port->GetParallelPortInfo(1, info), 0);
    EXPECT_EQ(real.port->InByte(890), 255);
}

}  // namespace
}  // namespace vx3260::test
