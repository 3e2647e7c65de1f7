// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <QApplication>
#include <algorithm>
#include <exception>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "app/ApplicationInfo.h"
#include "app/ApplicationState.h"
#include "app/Services.h"
#include "app/StartUp.h"
#include "forms/shell/MainMenuForm.h"
#include "numbers/FileErrors.h"
#include "options/ExitCodes.h"
#include "options/PortOptions.h"
#include "platform/Console.h"
#include "platform/EndSignals.h"
#include "platform/HostSystem.h"
#include "ports/OpenPort.h"
#include "ui/CloseOnSignal.h"
#include "ui/Icons.h"
#include "ui/QtMessageBoxes.h"

namespace {

using namespace vx3260;

constexpr const char* programName = "vx3260-eval";

/// Shows a text before or after the forms: on the terminal, or if there is none in a message box.
void ShowText(const std::string& text, MessageIcon icon, int& argc, char** argv) {
    const bool isError = icon == MessageIcon::Critical;
    if (Print(isError ? StandardStream::Error : StandardStream::Output, text)) {
        return;
    }
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(ApplicationIcon());
    QtMessageBoxes(std::cerr).Show({.text = text, .icon = icon});
}

/// What the command line asks for.
struct Request {
    PortChoice port;
    std::optional<int> exitCode;  ///< the program ends with it, after showing `text`
    std::string text;
};

Request Parse(std::vector<std::string> arguments) {
    Request request;
    CLI::App app{std::string(ApplicationTitle), programName};
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

int Run(int& argc, char** argv) {
    HostSystem system(argc, argv);
    const Request request = Parse(system.Arguments());
    if (request.exitCode) {
        ShowText(request.text,
                 *request.exitCode == 0 ? MessageIcon::Information : MessageIcon::Critical, argc,
                 argv);
        return *request.exitCode;
    }
    EndSignals endSignals;
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(ApplicationIcon());
    const CloseOnSignal closeOnSignal(endSignals.Descriptor(),
                                      [&endSignals] { endSignals.Release(); });
    QtMessageBoxes messages(std::cerr);
    ApplicationState state;
    const OpenedPort opened = OpenPort(request.port);
    Services services{*opened.port, messages, system, state, opened.boardLabel};
    StartUp(services);
    MainMenuForm(services).exec();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    PrepareConsole();
    const auto end = [&](const std::exception& error, ExitCode code) {
        ShowText(std::string(programName) + ": " + error.what() + "\n", MessageIcon::Critical, argc,
                 argv);
        return static_cast<int>(code);
    };
    try {
        return Run(argc, argv);
    } catch (const FileAccessError& error) {
        return end(error, ExitCode::FileNotAccessible);
    } catch (const std::exception& error) {
        return end(error, ExitCode::UnexpectedError);
    }
}
