// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/RunCli.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

#include "app/ApplicationInfo.h"
#include "app/StartUp.h"
#include "cli/commands/CommandSet.h"
#include "cli/commands/ReportErrors.h"
#include "cli/commands/ScriptCommand.h"
#include "files/CodeFile.h"
#include "options/Completion.h"
#include "options/ExitCodes.h"
#include "options/PortOptions.h"

namespace vx3260 {
namespace {

std::string ExitCodeHelp() {
    std::string help = "Exit codes:";
    for (const ExitCodeText& line : ExitCodeTexts) {
        const std::string code = std::to_string(static_cast<int>(line.code));
        help += "\n  " + code + std::string(5 - code.size(), ' ') + std::string(line.text);
    }
    return help;
}

/// Whether the port has failed since start-up.
bool ReportFailure(const BoardSession& board, std::ostream& err) {
    const std::string failure = board.NewFailure();
    if (!failure.empty()) {
        ReportError(err, "", failure);
    }
    return !failure.empty();
}

class Program {
  public:
    Program() {
        commands_.Add(std::make_unique<ScriptCommand>(parser_));
        parser_.set_version_flag("--version",
                                 std::string(ApplicationTitle) + " " + std::string(VersionText));
        AddPortOptions(parser_, portChoice_);
        parser_.footer(ExitCodeHelp());
    }

    ExitCode Run(std::span<const std::string> arguments, OperatingSystem& system,
                 CliStreams& streams, const PortOpener& openPort) {
        if (const auto candidates = RequestedCompletion(parser_, arguments)) {
            streams.out << *candidates;
            return ExitCode::Success;
        }
        const bool statusRequested =
            std::any_of(arguments.begin(), arguments.end(), IsStatusSwitch);
        try {
            Parse(arguments);
        } catch (const CLI::ParseError& error) {
            if (error.get_exit_code() != 0) {
                throw CommandError(
                    ExitCode::WrongCommandLine,
                    std::string(error.what()) + "\nRun with --help for more information.");
            }
            parser_.exit(error, streams.out, streams.err);
            return ExitCode::Success;
        }
        BoardSession board(portChoice_, statusRequested, system, streams.err, openPort);
        try {
            const ExitCode code = commands_.Chosen().Run({board, system, streams});
            return ReportFailure(board, streams.err) && code == ExitCode::Success
                       ? ExitCode::NoAnswer
                       : code;
        } catch (...) {
            ReportFailure(board, streams.err);
            throw;
        }
    }

  private:
    /// The parser expects its words in reverse order. The status switch is not one of its options.
    void Parse(std::span<const std::string> arguments) {
        std::vector<std::string> words(arguments.rbegin(), arguments.rend());
        std::erase_if(words, IsStatusSwitch);
        parser_.parse(std::move(words));
    }

    CLI::App parser_{std::string(ApplicationTitle) + ", for the command line", ProgramName};
    CommandSet commands_{parser_};
    PortChoice portChoice_;
};

/// Output that cannot be flushed is an error.
ExitCode RunAndFlush(std::span<const std::string> arguments, OperatingSystem& system,
                     CliStreams& streams, const PortOpener& openPort) {
    const ExitCode code = Program().Run(arguments, system, streams, openPort);
    WriteToStream(streams.out, "", "standard output");
    return code;
}

}  // namespace

int RunCli(std::span<const std::string> arguments, OperatingSystem& system, CliStreams streams,
           const PortOpener& openPort) {
    return static_cast<int>(ReportErrors(
        streams, "", [&] { return RunAndFlush(arguments, system, streams, openPort); }));
}

}  // namespace vx3260
