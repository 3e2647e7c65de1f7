// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/SaveCommand.h"

#include <CLI/CLI.hpp>

#include "cli/board/BoardConfiguration.h"
#include "cli/board/BoardRegisters.h"
#include "options/Validators.h"

namespace vx3260 {

SaveCommand::SaveCommand(CLI::App& program)
    : Command(program, "save",
              "Save the chip's settings in a file, which restore and script write to a chip") {
    AddForce(Parser(), output_,
             Parser()
                 .add_option("FILE", output_.file, "File to write, or - for standard output")
                 ->check(FileName())
                 ->required());
    AddCoefficients(Parser(), coefficients_);
}

ExitCode SaveCommand::Run(const CommandContext& context) {
    TextOutput output(output_, context);
    Services& services = context.board.Services();
    const Configuration configuration = ReadAnsweredConfiguration(services, NothingSaved);
    output.Write(ConfigurationText(configuration, HeadNow(services), coefficients_));
    return ExitCode::Success;
}

}  // namespace vx3260
