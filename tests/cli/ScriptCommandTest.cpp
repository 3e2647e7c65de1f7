// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <numeric>

#include "cli/CliRun.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

class Script : public testing::Test {
  protected:
    /// Runs the text as a script on the simulated board.
    Outcome Run(const std::string& text) const {
        return RunProgram("--simulated script " + folder.Make("s.txt", text));
    }

    Folder folder;
};

double MeanOf(const std::string& codes) {
    std::istringstream words(codes);
    const std::vector<double> values{std::istream_iterator<double>(words), {}};
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// Shorted inputs read as mid-scale once the offset is gone, 20 mV as 65536 codes above it once the
/// gain error is gone too.
TEST_F(Script, CalibratingTakesOffsetAndGainErrorAway) {
    const auto read = [this](const std::string& file) {
        return "read main --count 100 --output " + folder.Path(file) + "\n";
    };
    const std::string zero = "set main-control channel=ain2-ain2\n";
    const std::string volts = "set main-control channel=ain3-ain4\n";
    const Outcome outcome = Run(zero + read("zeroBefore") + volts + read("voltsBefore") +
                                "calibrate internal-zero\ncalibrate internal-full\n" +
                                read("voltsAfter") + zero + read("zeroAfter"));
    EXPECT_TRUE(Has(outcome.out, "\nmain-zero: 0x800000 -> 0x8041"));
    EXPECT_TRUE(Has(outcome.out, "\naux-full: 0x4000 -> 0x4042\n"));
    const double half = 8388608;
    EXPECT_NEAR(MeanOf(folder.Bytes("zeroBefore")), half + 16777, 10);
    EXPECT_NEAR(MeanOf(folder.Bytes("zeroAfter")), half, 40);
    EXPECT_NEAR(MeanOf(folder.Bytes("voltsBefore")), half + 65536 * 0.996 + 16777, 10);
    EXPECT_NEAR(MeanOf(folder.Bytes("voltsAfter")), half + 65536, 40);
}

/// 1.5 V of 2.5 V, with the board's offset and gain error: a code above half of 16 bits.
TEST_F(Script, AuxCodesAreTheSameInEitherNotation) {
    const Outcome outcome = Run("set aux-control channel=ain3\nread aux --count 20 --output " +
                                folder.Path("dec") + "\nread aux --count 20 --hex");
    EXPECT_TRUE(Has(outcome.err, "Reading 20 codes from the Aux ADC"));
    EXPECT_NEAR(MeanOf(folder.Bytes("dec")), 39321.6 * 0.996 + 131, 2);
    EXPECT_TRUE(Has(outcome.out, "\n99"));
}

TEST_F(Script, HasOneBoardAndTextOfAnyOrigin) {
    const Outcome outcome =
        Run("\xEF\xBB\xBF# a comment\r\n\r\n  # another\r\nset mode chcon=set\r\n"
            "read main --count 2 --output '" +
            folder.Path("a b.dat") +
            "'\r\n"
            "\tset \"mode\" chcon=cleared");
    EXPECT_EQ(outcome.exitCode, ExitCode::Success) << outcome.err;
    EXPECT_EQ(outcome.out, "mode: 0x03 -> 0x13\nmode: 0x13 -> 0x03\n");
    EXPECT_EQ(Lines(folder.Bytes("a b.dat")), 2);
    EXPECT_EQ(outcome.err.find("Simulated board"), outcome.err.rfind("Simulated board"));
}

TEST_F(Script, BinaryDataAreRefused) {
    const Outcome outcome = Run("registers\n\x7F");
    EXPECT_EQ(outcome.exitCode, ExitCode::BadDataFile);
    EXPECT_TRUE(Has(outcome.err, "s.txt:2: binary data, not a script"));
}

}  // namespace
}  // namespace vx3260::test
