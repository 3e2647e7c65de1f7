// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
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
#include "ui/NoSettingsFile.h"
#include "ui/QtMessageBoxes.h"

namespace {

using namespace vx3260;

constexpr const char* programName = "vx3260-eval";

/// What Qt says when it cannot start; it ends the process by a crash otherwise.
void ReportNoDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type != QtFatalMsg) {
        return;
    }
    std::cerr << programName << ": no display for the forms. vx3260-cli does the same work in a "
              << "terminal; see vx3260-cli --help." << std::endl;
    if (qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
        std::cerr << text.toStdString() << std::endl;
    }
    std::_Exit(static_cast<int>(ExitCode::UnexpectedError));
}

std::unique_ptr<QApplication> StartQt(int& argc, char** argv) {
    const QtMessageHandler usual = qInstallMessageHandler(ReportNoDisplay);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(usual);
    QApplication::setWindowIcon(ApplicationIcon());
    PreventSettingsFile();
    return application;
}

/// Shows a text before or after the forms: on the terminal, or if there is none in a message box.
void ShowText(const std::string& text, MessageIcon icon, int& argc, char** argv) {
    const bool isError = icon == MessageIcon::Critical;
    if (Print(isError ? StandardStream::Error : StandardStream::Output, text)) {
        return;
    }
    const auto application = StartQt(argc, argv);
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
    const auto application = StartQt(argc, argv);
    const CloseOnSignal closeOnSignal(endSignals.Descriptor(),
                                      [&endSignals] { endSignals.Release(); });
    QtMessageBoxes messages(std::cerr);
    ApplicationState state;
    const OpenedPort opened = OpenPort(request.port, state.PortAddress);
    Services services{*opened.port, messages, system, state, opened.boardLabel, opened.faults};
    StartUp(services);
    MainMenuForm(services, request.file).exec();
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
