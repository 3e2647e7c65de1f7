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

constexpr const char* programName = "vx3260-eval";

/// What the program tells before or after its forms: on the terminal, or where there is none in a
/// box.
class Teller {
  public:
    Teller(const Console& console, int& argc, char** argv)
        : console_(console), argc_(argc), argv_(argv) {}

    void Tell(const std::string& text, MessageIcon icon) const {
        if (console_.errIsSeen) {
            (icon == MessageIcon::Critical ? std::cerr : std::cout) << text << std::flush;
            return;
        }
        const QApplication application(argc_, argv_);
        QApplication::setWindowIcon(ApplicationIcon());
        std::ostringstream unseen;
        QtMessageBoxes(unseen).Show({.text = text, .icon = icon});
    }

  private:
    const Console& console_;
    int& argc_;
    char** argv_;
};

/// Fills in the port choice from the command line. An exit code where the program ends with that:
/// after --help or --version, or because of an error, which has been told.
std::optional<int> Parse(std::vector<std::string> arguments, PortChoice& choice,
                         const Teller& teller) {
    CLI::App app{std::string(ApplicationTitle), programName};
    app.set_version_flag("--version", std::string(VersionText));
    app.footer("/SS anywhere in the command line shows the system and the port address.");
    AddPortOptions(app, choice);
    app.allow_extras();
    app.allow_windows_style_options(false);  // the same words on every system
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
        std::ostringstream text;
        const bool well = app.exit(error, text, text) == 0;
        teller.Tell(text.str(), well ? MessageIcon::Information : MessageIcon::Critical);
        return well ? 0 : static_cast<int>(ExitCode::WrongCommandLine);
    }
    return std::nullopt;
}

int Run(int& argc, char** argv, const Teller& teller) {
    MachineSystem system(argc, argv);
    PortChoice choice;
    if (const std::optional<int> exitCode = Parse(system.Arguments(), choice, teller)) {
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

int End(const std::exception& error, ExitCode code, const Teller& teller) {
    teller.Tell(std::string(programName) + ": " + error.what() + "\n", MessageIcon::Critical);
    return static_cast<int>(code);
}

}  // namespace

int main(int argc, char** argv) {
    const Console console = PrepareConsole();
    const Teller teller(console, argc, argv);
    try {
        return Run(argc, argv, teller);
    } catch (const FileAccessError& error) {
        return End(error, ExitCode::FileNotAccessible, teller);
    } catch (const std::exception& error) {
        return End(error, ExitCode::UnexpectedError, teller);
    }
}
