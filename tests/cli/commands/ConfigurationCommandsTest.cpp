// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <random>

#include "cli/commands/CliRun.h"
#include "link/FilterRate.h"
#include "link/RegisterFields.h"
#include "support/Folder.h"

namespace vx3260::test {
namespace {

/// Lines of a script that set every field to a random value that lasts, in power-down.
std::string RandomSettings(std::mt19937& random) {
    const auto number = [&random](std::int32_t from, std::int32_t to) {
        return std::to_string(std::uniform_int_distribution<std::int32_t>(from, to)(random));
    };
    std::string script = "set mode mode=power-down\n";
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        for (const RegisterMap::Field& field : description.fields) {
            const bool inputLevel = field.name == "p3" || field.name == "p4";
            if (description.access.writeByte == 0 || inputLevel) {
                continue;
            }
            const bool filter = field.name == RegisterMap::FilterWord.name;
            const std::string code = field.name == RegisterMap::OperatingMode.name ? "0"
                                     : filter ? number(MinFilterWord, MaxFilterWord)
                                              : number(0, field.LargestCode());
            script += "set " + std::string(description.name) + " " + std::string(field.name) + "=" +
                      code + "\n";
        }
    }
    return script + "set mode mode=" + number(0, 1) + "\n";
}

/// All lines share one simulated board.
TEST(ConfigurationCommands, RestoreAnySettingsThatWereSaved) {
    const Folder folder;
    std::mt19937 random{16};
    std::string script;
    for (int round = 0; round < 10; ++round) {
        const std::string saved = folder.Path("saved" + std::to_string(round));
        const std::string again = folder.Path("again" + std::to_string(round));
        script += RandomSettings(random) + "save " + saved + " --coefficients\n" +
                  RandomSettings(random) + "restore " + saved + "\ncompare " + saved + "\nsave " +
                  again + " --coefficients\ncompare " + saved + " " + again + "\n";
    }
    const Outcome outcome = RunProgram("--simulated script " + folder.Make("script", script));
    EXPECT_EQ(outcome.exitCode, ExitCode::Success) << outcome.err;
    EXPECT_NE(outcome.err.find("9 registers written, all verified"), std::string::npos);

    // A saved file is a script of its own.
    const Outcome alone =
        RunProgram("--simulated script " + folder.Make("own", folder.Bytes("saved3") + "compare " +
                                                                  folder.Path("saved3") + "\n"));
    EXPECT_EQ(alone.exitCode, ExitCode::Success) << alone.err;
}

}  // namespace
}  // namespace vx3260::test
