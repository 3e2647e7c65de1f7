// SPDX-License-Identifier: GPL-3.0-or-later
#include "options/EvalCommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>

#include "app/ApplicationInfo.h"
#include "app/StartUp.h"
#include "options/ExitCodes.h"
#include "options/PortOptions.h"

namespace vx3260 {

EvalRequest ParseEvalCommandLine(std::vector<std::string> arguments) {
    EvalRequest request;
    CLI::App app{std::string(ApplicationTitle), "vx3260-eval"};
    app.set_version_flag("--version", std::string(VersionText));
    app.footer("/SS anywhere in the command line shows the system and the port address.");
    AddPortOptions(app, request.port);
    app.allow_extras();
    app.allow_windows_style_options(false);  // the same words on every system
    try {
        // The parser expects its words in reverse order.
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
        for (const std::string& word : app.remaining()) {
            if (!HoldsStatusSwitch(word)) {
                throw CLI::ExtrasError({word});
            }
        }
    } catch (const CLI::ParseError& error) {
        std::ostringstream text;
        const bool well = app.exit(error, text, text) == 0;
        request.exitCode = well ? 0 : static_cast<int>(ExitCode::WrongCommandLine);
        request.text = text.str();
    }
    return request;
}

}  // namespace vx3260
