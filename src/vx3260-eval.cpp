// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <exception>
#include <iostream>
#include <string>

#include "app/ApplicationState.h"
#include "app/Services.h"
#include "app/StartUp.h"
#include "forms/shell/MainMenuForm.h"
#include "numbers/FileErrors.h"
#include "options/EvalCommandLine.h"
#include "options/ExitCodes.h"
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

int Run(int& argc, char** argv) {
    HostSystem system(argc, argv);
    const EvalRequest request = ParseEvalCommandLine(system.Arguments());
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
