// SPDX-License-Identifier: GPL-3.0-or-later
#include "options/EvalCommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "app/ApplicationInfo.h"
#include "app/StartUp.h"
#include "numbers/FilePath.h"
#include "options/Completion.h"
#include "options/ExitCodes.h"
#include "options/PortOptions.h"

namespace vx3260 {

namespace {

bool IsFile(const std::string& word) {
    std::error_code unknown;
    const auto status = std::filesystem::status(FilePath(word), unknown);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

/// The file that the words name.
std::string FileAmong(const std::vector<std::string>& words) {
    std::string file;
    for (const std::string& word : words) {
        if (!word.starts_with('-') && IsFile(word)) {
            if (!file.empty()) {
                throw CLI::ValidationError("Only one file can be named; " + word +
                                           " is the second");
            }
            file = word;
        } else if (word.starts_with('-')) {
            throw CLI::ExtrasError({word});
        } else if (!HoldsStatusSwitch(word)) {
            throw CLI::ValidationError("There is no file " + word);
        }
    }
    return file;
}

}  // namespace

EvalRequest ParseEvalCommandLine(std::vector<std::string> arguments) {
    EvalRequest request;
    CLI::App app{std::string(ApplicationTitle), "vx3260-eval"};
    app.set_version_flag("--version", std::string(VersionText));
    app.footer(
        "A word that names a file: a data file of codes to begin with.\n"
        "/SS anywhere in the command line shows the system and the port address.");
    AddPortOptions(app, request.port);
    app.allow_extras();
    app.allow_windows_style_options(false);  // the same words on every system
    if (const auto candidates = RequestedCompletion(app, arguments)) {
        request.exitCode = static_cast<int>(ExitCode::Success);
        request.text = *candidates;
        return request;
    }
    try {
        // The parser expects its words in reverse order.
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
        request.file = FileAmong(app.remaining());
    } catch (const CLI::ParseError& error) {
        std::ostringstream text;
        const bool isHelp = app.exit(error, text, text) == 0;
        request.exitCode = isHelp ? 0 : static_cast<int>(ExitCode::WrongCommandLine);
        request.text = (isHelp ? "" : "vx3260-eval: ") + text.str();
    }
    return request;
}

}  // namespace vx3260
