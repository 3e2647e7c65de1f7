// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/RegisterRecord.h"

#include <gtest/gtest.h>

#include "app/StartUp.h"
#include "link/Register.h"
#include "link/Reset.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

using RegisterMap::RegisterAccess;
using Value = std::optional<std::int32_t>;

struct RegisterRecordTest : testing::Test {
    Register At(const RegisterAccess& access) {
        return {*bench.port, bench.state.PortAddress, access};
    }
    Value Known(const RegisterAccess& access) { return bench.port->Registers().ValueOf(access); }

    SimulatedBench bench;
};

TEST_F(RegisterRecordTest, HoldsWhatWasLastReadOrWritten) {
    EXPECT_EQ(Known(RegisterMap::Filter), std::nullopt);
    At(RegisterMap::Filter).ReadReg();
    EXPECT_EQ(Known(RegisterMap::Filter), 0x45);
    At(RegisterMap::Filter).WriteValue(0x0D);
    EXPECT_EQ(Known(RegisterMap::Filter), 0x0D);
    At(RegisterMap::Filter).ReadReg();
    EXPECT_EQ(Known(RegisterMap::Filter), 0x45) << "the chip ignores the write in this mode";
    At(RegisterMap::MainZeroScale).ReadReg();
    At(RegisterMap::Mode).WriteValue(RegisterMap::InternalFullScale);
    EXPECT_EQ(Known(RegisterMap::Mode), std::nullopt) << "the chip leaves it by itself";
    EXPECT_EQ(Known(RegisterMap::MainZeroScale), std::nullopt) << "calibrated";
    HardwareReset(*bench.port, bench.state.PortAddress);
    EXPECT_EQ(Known(RegisterMap::Filter), std::nullopt);
    At(RegisterMap::AuxControl).ReadReg();
    SoftwareReset(*bench.port, bench.state.PortAddress);
    EXPECT_EQ(Known(RegisterMap::AuxControl), std::nullopt);
    At(RegisterMap::AuxControl).ReadReg();
    bench.port->ForgetBoard();
    EXPECT_EQ(Known(RegisterMap::AuxControl), std::nullopt);
}

TEST_F(RegisterRecordTest, SnapshotIsCompletedByReadsUntilAWriteOrReset) {
    At(RegisterMap::Filter).ReadReg();
    const RegisterSnapshot before = bench.port->Registers().Snapshot();
    At(RegisterMap::Mode).ReadReg();
    EXPECT_EQ(before.ValueOf(RegisterMap::Mode), 0x03);
    At(RegisterMap::Mode).WriteValue(0);
    At(RegisterMap::Filter).WriteValue(0x0D);
    At(RegisterMap::IOControl).WriteValue(1);
    At(RegisterMap::IOControl).ReadReg();
    HardwareReset(*bench.port, bench.state.PortAddress);
    At(RegisterMap::AuxControl).ReadReg();
    EXPECT_EQ(before.ValueOf(RegisterMap::Mode), 0x03);
    EXPECT_EQ(before.ValueOf(RegisterMap::Filter), 0x45);
    EXPECT_EQ(before.ValueOf(RegisterMap::IOControl), std::nullopt);
    EXPECT_EQ(before.ValueOf(RegisterMap::AuxControl), std::nullopt);
}

TEST_F(RegisterRecordTest, IgnoresABoardThatIsGone) {
    SimulatedBench gone("board-gone=0");
    Register(*gone.port, gone.state.PortAddress, RegisterMap::Mode).ReadReg();
    EXPECT_EQ(gone.port->Registers().ValueOf(RegisterMap::Mode), std::nullopt);
}

}  // namespace
}  // namespace vx3260::test
