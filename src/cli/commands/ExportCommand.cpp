// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/ExportCommand.h"

#include <CLI/CLI.hpp>

#include "acquisition/ConditionsRecorder.h"
#include "app/ApplicationInfo.h"
#include "cli/board/BoardConfiguration.h"
#include "cli/commands/ConfigurationOptions.h"
#include "options/Validators.h"

namespace vx3260 {
namespace {

constexpr NamedChoice<ExportFormat> formats[] = {
    {"c", ExportFormat::C}, {"json", ExportFormat::Json}, {"csv", ExportFormat::Csv}};

}  // namespace

ExportCommand::ExportCommand(CLI::App& program)
    : Command(program, "export",
              "Print the chip's settings for firmware: the register writes in their order") {
    AddConfigurationFile(Parser(), "FILE", file_,
                         "File that save has written, or - for standard input; without it, the "
                         "chip's settings are taken");
    AddChoice(Parser(), "--format", format_, formats,
              "A C header with a table, or the same as JSON or CSV");
    AddForce(
        Parser(), output_,
        Parser()
            .add_option("-o,--output", output_.file, "File to write, in place of standard output")
            ->type_name("FILE")
            ->check(FileName()));
    AddCoefficients(Parser(), coefficients_);
}

ExitCode ExportCommand::Run(const CommandContext& context) {
    TextOutput output(output_, context);
    if (!file_.empty()) {
        const ConfigurationHead head{
            .program = std::string(TitleAndVersion), .time = PresentTime(), .file = file_};
        output.Write(ExportText(LoadNamedConfiguration(file_), head, coefficients_, format_));
        return ExitCode::Success;
    }
    Services& services = context.board.Services();
    const Configuration configuration = ReadAnsweredConfiguration(services, NothingSaved);
    output.Write(ExportText(configuration, HeadNow(services), coefficients_, format_));
    return ExitCode::Success;
}

}  // namespace vx3260
