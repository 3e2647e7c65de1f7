// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "cli/commands/CliRun.h"
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
