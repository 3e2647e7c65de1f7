#include <CLI/CLI.hpp>
#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "app/ApplicationInfo.h"
#include "app/ApplicationState.h"
#include "app/Services.h"
#include "app/StartUp.h"
#include "cli/ExitCodes.h"
#include "cli/PortOptions.h"
#include "files/FileErrors.h"
#include "forms/shell/MainMenuForm.h"
#include "platform/Console.h"
#include "platform/MachineSystem.h"
#include "ports/OpenPort.h"
#include "ui/Icons.h"
#include "ui/QtMessageBoxes.h"

namespace {

using namespace vx3260;

/// Fills in the port choice from the command line. An exit code where the program ends with that:
/// after --help or --version, or because of an error, which has been told.
std::optional<int> Parse(std::vector<std::string> arguments, PortChoice& choice) {
    CLI::App app{std::string(ApplicationTitle)};
    app.set_version_flag("--version", std::string(VersionText));
    app.footer("/SS anywhere in the command line shows the system and the port address.");
    AddPortOptions(app, choice);
    app.allow_extras();
    try {
        // The parser takes its words from the end of the list.
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
        for (const std::string& word : app.remaining()) {
            if (!HoldsStatusSwitch(word)) {
                throw CLI::ExtrasError({word});
            }
        }
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : static_cast<int>(ExitCode::WrongCommandLine);
    }
    return std::nullopt;
}

int Run(int argc, char** argv) {
    MachineSystem system(argc, argv);
    PortChoice choice;
    if (const std::optional<int> exitCode = Parse(system.Arguments(), choice)) {
        return *exitCode;
    }
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(ApplicationIcon());
    QtMessageBoxes messages(std::cerr);
    ApplicationState state;
    const OpenedPort opened = OpenPort(choice);
    Services services{*opened.port, messages, system, state, opened.badge};
    StartUp(services);
    MainMenuForm(services).exec();
    return 0;
}

int End(const std::exception& error, ExitCode code) {
    std::fprintf(stderr, "vx3260-eval: %s\n", error.what());
    return static_cast<int>(code);
}

}  // namespace

int main(int argc, char** argv) {
    PrepareConsole();
    try {
        return Run(argc, argv);
    } catch (const FileAccessError& error) {
        return End(error, ExitCode::FileNotAccessible);
    } catch (const std::exception& error) {
        return End(error, ExitCode::UnexpectedError);
    }
}
