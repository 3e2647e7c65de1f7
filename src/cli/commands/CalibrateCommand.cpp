// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/CalibrateCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>
#include <vector>

#include "app/MessageTexts.h"
#include "cli/board/BoardRegisters.h"
#include "cli/board/StuckReadyLine.h"
#include "cli/reports/RegisterText.h"
#include "link/Assignment.h"
#include "link/Calibration.h"
#include "link/Converter.h"
#include "link/Register.h"
#include "link/RegisterLookup.h"

namespace vx3260 {
namespace {

constexpr std::string_view calibrationStarted = "The calibration was started. ";

std::vector<std::string> CalibrationKindNames() {
    std::vector<std::string> names;
    std::transform(CalibrationModes.begin(), CalibrationModes.end(), std::back_inserter(names),
                   [](const RegisterMap::FieldValue& mode) { return std::string(mode.name); });
    return names;
}

std::int32_t ModeOf(std::string_view kind) {
    return std::find_if(CalibrationModes.begin(), CalibrationModes.end(),
                        [kind](const RegisterMap::FieldValue& mode) { return mode.name == kind; })
        ->code;
}

RegisterReading ReadBefore(Services& services, const RegisterMap::RegisterAccess& access) {
    return ReadAnswered(services, RegisterMap::DescriptionOf(access), NothingWritten);
}

/// The registers that a calibration of the enabled converters can change.
std::vector<RegisterReading> ReadCalibration(Services& services) {
    std::vector<RegisterReading> readings;
    for (const Converter converter : {Converter::Main, Converter::Aux}) {
        const ConverterTraits& traits = TraitsOf(converter);
        if (RegisterMap::IsEnabled(ReadBefore(services, traits.control).value)) {
            readings.push_back(ReadBefore(services, traits.zeroScale));
            readings.push_back(ReadBefore(services, traits.fullScale));
        }
    }
    return readings;
}

void ShowPrompt(Services& services, std::int32_t mode) {
    if (const auto prompt = MessageTexts::CalibrationPrompt(mode)) {
        services.messages.Show(*prompt);
    }
}

}  // namespace

CalibrateCommand::CalibrateCommand(CLI::App& program)
    : Command(program, "calibrate", "Calibrate the enabled converters") {
    Parser()
        .add_option("kind", kind_,
                    "Which calibration; the system ones take the signal that is at the input")
        ->check(CLI::IsMember(CalibrationKindNames()))
        ->required();
}

ExitCode CalibrateCommand::Run(const CommandContext& context) {
    Services& services = context.board.Services();
    const std::vector<RegisterReading> before = ReadCalibration(services);
    if (before.empty()) {
        throw CommandError(ExitCode::ConverterDisabled,
                           "Enable a converter before calibrating: set main-control enable=on, or "
                           "set aux-control enable=on");
    }
    const std::int32_t mode = ModeOf(kind_);
    ShowPrompt(services, mode);
    Register modeRegister(services.port, services.state.PortAddress, RegisterMap::Mode);
    StartCalibration(modeRegister, mode);
    if (!WaitForCalibration(services.port, services.state.PortAddress)) {
        services.messages.Show({.text = std::string(MessageTexts::ErrorCalibrating),
                                .icon = MessageIcon::Exclamation,
                                .detail = MessageTexts::CalibrationTimeoutDetail(services.port)});
        return ExitCode::NoAnswer;
    }
    CheckCalibrationEnded(services);
    std::string changes;
    for (const RegisterReading& reading : before) {
        const RegisterReading after =
            ReadAnswered(services, reading.description, calibrationStarted);
        changes += ChangeText(reading.description, reading.value, after.value) + "\n";
    }
    // A board may have gone while the last of them was read.
    ReadAnswered(services, RegisterMap::DescriptionOf(RegisterMap::Mode), calibrationStarted);
    context.streams.out << changes;
    return ExitCode::Success;
}

}  // namespace vx3260
