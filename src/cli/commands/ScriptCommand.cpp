// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/ScriptCommand.h"

#include <CLI/CLI.hpp>

#include "cli/commands/CommandSet.h"
#include "cli/commands/ReportErrors.h"
#include "files/CodeFile.h"
#include "files/ScriptText.h"
#include "options/Validators.h"

namespace vx3260 {
namespace {

constexpr std::string_view standardInput = "-";
constexpr SizeLimit scriptLimit{std::size_t{1} << 20U, "that is not a script"};

std::string LoadScript(const std::string& file) {
    return file == standardInput ? LoadStandardInput(scriptLimit) : LoadBytes(file, scriptLimit);
}

/// Options of the whole program: recognised here only to refuse them with a reason.
void AddRefusedWords(CLI::App& line) {
    for (const char* const name : {"--simulated", "--fault"}) {
        line.add_option_function<std::string>(
                name,
                [name](const std::string& /*value*/) {
                    throw CLI::ValidationError(
                        name, "the board is chosen before the script, for all of its lines");
                },
                "")
            ->expected(0, 1)
            ->group("");
    }
    CLI::App* const script = line.add_subcommand("script", "");
    script->group("")->set_help_flag();
    script->fallthrough(false)->prefix_command()->final_callback(
        [] { throw CLI::ValidationError("script", "a script cannot run another one"); });
}

/// One line of a script, with the same commands as the program's own line.
class LineParser {
  public:
    LineParser() { AddRefusedWords(parser_); }

    /// Null where the line only asks for help, which has been printed then.
    Command* Parse(const std::string& line, CliStreams& streams) {
        try {
            parser_.parse(line);
        } catch (const CLI::ParseError& error) {
            if (error.get_exit_code() != 0) {
                throw CommandError(ExitCode::WrongCommandLine, error.what());
            }
            parser_.exit(error, streams.out, streams.err);
            return nullptr;
        }
        return &commands_.Chosen();
    }

  private:
    CLI::App parser_{"A line of a script"};
    CommandSet commands_{parser_};
};

/// The output of a line is flushed before the next line runs.
ExitCode RunLine(const ScriptLine& line, const CommandContext& context) {
    LineParser parser;
    Command* const command = parser.Parse(line.text, context.streams);
    const ExitCode code = command == nullptr ? ExitCode::Success : command->Run(context);
    WriteToStream(context.streams.out, "", "standard output");
    return code;
}

}  // namespace

ScriptCommand::ScriptCommand(CLI::App& program)
    : Command(program, "script",
              "Run the commands in a file, one a line, on one board; the first that fails ends it "
              "with its exit code") {
    Parser()
        .add_option("FILE", file_,
                    "The script, or - for standard input; blank lines and lines that begin with # "
                    "are skipped, quotes hold words with blanks together")
        ->required()
        ->check(FileName());
}

ExitCode ScriptCommand::Run(const CommandContext& context) {
    const std::string name = file_ == standardInput ? "standard input" : file_;
    for (const ScriptLine& line : ScriptLines(LoadScript(file_), name)) {
        const std::string place = name + ":" + std::to_string(line.number);
        const ExitCode code = ReportErrors(context.streams, place, [&] {
            const ExitCode ofLine = RunLine(line, context);
            if (ofLine != ExitCode::Success) {
                ReportError(context.streams.err, place, "the script ends here");
            }
            return ofLine;
        });
        if (code != ExitCode::Success) {
            return code;
        }
    }
    return ExitCode::Success;
}

}  // namespace vx3260
