// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CalibrateCommand.h"

#include <algorithm>
#include <ostream>
#include <vector>

#include "cli/Assignment.h"
#include "cli/BoardAnswer.h"
#include "cli/ReadyLine.h"
#include "cli/RegisterText.h"
#include "link/Calibration.h"
#include "link/Register.h"

namespace vx3260 {
namespace {

/// The registers that calibrating a converter can change.
struct CalibratedConverter {
    RegisterMap::RegisterAccess control;
    std::string_view zero;
    std::string_view full;
};

constexpr CalibratedConverter calibratedConverters[] = {
    {RegisterMap::MainControl, "main-zero", "main-full"},
    {RegisterMap::AuxControl, "aux-zero", "aux-full"},
};

/// What the user has to do for a calibration with a signal from outside.
constexpr struct {
    std::string_view kind;
    std::string_view prompt;
} prompts[] = {
    {"system-zero", "Please Connect a Zero Scale signal to the Analog Input"},
    {"system-full", "Please connect a Full Scale signal to the Analog Input"},
};

constexpr std::string_view timeoutDetail =
    "The data-ready line did not show the end of the calibration in time. Check the cable, the "
    "board's power and its data-ready line.";

std::vector<std::string> KindNames() {
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

std::vector<RegisterReading> ReadCalibration(Services& services) {
    std::vector<RegisterReading> readings;
    for (const CalibratedConverter& converter : calibratedConverters) {
        const RegisterReading control =
            ReadAnswered(services, DescriptionOf(converter.control), NothingWritten);
        if ((control.value & RegisterMap::EnableMask) == 0) {
            continue;
        }
        for (const std::string_view name : {converter.zero, converter.full}) {
            readings.push_back(ReadAnswered(services, RegisterNamed(name), NothingWritten));
        }
    }
    return readings;
}

void ShowPrompt(Services& services, std::string_view kind) {
    for (const auto& entry : prompts) {
        if (entry.kind == kind) {
            services.messages.Show(
                {.text = std::string(entry.prompt), .icon = MessageIcon::Information});
        }
    }
}

void StartCalibration(Services& services, std::int32_t code) {
    Register mode(services.port, services.state.PortAddress, RegisterMap::Mode);
    const std::int32_t before = ReadRegister(services, RegisterMap::Mode);
    mode.RegValue = RegisterMap::OperatingMode.Insert(before, code);
    mode.WriteReg();
}

}  // namespace

CalibrateCommand::CalibrateCommand(CLI::App& program)
    : Command(program, "calibrate", "Calibrate the enabled converters") {
    Parser()
        .add_option("kind", kind_,
                    "Which calibration; the system ones take the signal that is at the input")
        ->check(CLI::IsMember(KindNames()))
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
    ShowPrompt(services, kind_);
    StartCalibration(services, ModeOf(kind_));
    if (!WaitForCalibration(services.port, services.state.PortAddress)) {
        services.messages.Show({.text = "Error Calibrating VX3260",
                                .icon = MessageIcon::Exclamation,
                                .detail = std::string(timeoutDetail)});
        return ExitCode::NoAnswer;
    }
    CheckCalibrationEnded(services);
    for (const RegisterReading& reading : before) {
        const RegisterReading after =
            ReadAnswered(services, reading.description, "The calibration was started. ");
        context.streams.out << ChangeText(reading.description, reading.value, after.value) << '\n';
    }
    return ExitCode::Success;
}

}  // namespace vx3260
