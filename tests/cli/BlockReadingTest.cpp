#include "cli/BlockReading.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "cli/ProgressLine.h"
#include "cli/StopSignal.h"
#include "support/SimulatedBench.h"

namespace vx3260::test {
namespace {

TEST(BlockReading, OnlyTheModeFieldIsChanged) {
    const std::tuple<unsigned, unsigned, std::string> cases[] = {
        {0x33, 0x33, ""},
        {0x26, 0x23,
         "The chip was not in Continuous Conversion Mode: mode register changed from 0x26 to "
         "0x23\n"},
    };
    for (const auto& [before, after, told] : cases) {
        SimulatedBench bench;
        bench.Chip().Preset(modeAt, before);
        std::ostringstream err;
        EnsureContinuousConversion(*bench.services, err);
        EXPECT_EQ(bench.Chip().Contents(modeAt), after);
        EXPECT_EQ(err.str(), told);
    }
}

TEST(BlockReading, ADisabledConverterHasItsOwnExitCode) {
    const std::tuple<Converter, unsigned, const char*> cases[] = {
        {Converter::Main, mainControlAt, "Enable Main ADC before reading Data"},
        {Converter::Aux, auxControlAt, "Enable Aux ADC before reading Data"},
    };
    for (const auto& [converter, control, message] : cases) {
        SimulatedBench bench;
        bench.Chip().Preset(control, 0x07);
        std::ostringstream out;
        try {
            ReadCodes(*bench.services, {out, out}, converter, 5, {});
            ADD_FAILURE() << "it was read";
        } catch (const CommandError& error) {
            EXPECT_EQ(error.Code(), ExitCode::ConverterDisabled);
            EXPECT_STREQ(error.what(), message);
        }
    }
}

TEST(BlockReading, AStopKeepsTheCodesReadSoFar) {
    SimulatedBench bench;
    std::ostringstream err;
    int asked = 0;
    const BlockReading reading = ReadCodes(*bench.services, {err, err}, Converter::Main, 100,
                                           [&asked] { return ++asked == 4; });
    EXPECT_EQ(reading.codes.size(), 4U);
    EXPECT_EQ(ExitCodeOf(reading.end, false), ExitCode::Interrupted);
    EXPECT_EQ(bench.messages.Texts().back(), "User Interruption of Reading\nRead so far: 4 codes");
}

TEST(ProgressLine, LeavesNothingBehind) {
    std::ostringstream terminal;
    { ProgressLine(terminal, 3, true).Show(1); }
    const std::string drawn = "[##########....................] 1 of 3";
    EXPECT_EQ(terminal.str(), "\r" + drawn + "\r" + std::string(drawn.size(), ' ') + "\r");
}

TEST(StopSignal, TheFirstAsksAndTheSecondKills) {
    EXPECT_DEATH(
        {
            const StopSignal stop;
            std::raise(SIGINT);
            std::fputs(stop.Requested() ? "asked" : "not asked", stderr);
            std::raise(SIGINT);
        },
        "^asked");
}

}  // namespace
}  // namespace vx3260::test
