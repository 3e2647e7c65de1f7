// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/MessageBoxes.h"
#include "link/Converter.h"
#include "link/ParallelPort.h"
#include "link/RegisterFields.h"

/// The fixed texts of messages, of the forms and of the command line.
namespace vx3260::MessageTexts {

// Start-up.
inline constexpr std::string_view ClaimFailed = "claim parallel port failed";
inline constexpr std::string_view NoPrinterPort = "This PC does not appear to have a Printer Port";
inline constexpr std::string_view NoPrinterPortTitle = "GetPortAddress Error";
inline constexpr std::string_view SimulatedHint = "--simulated works on the simulated board";
std::string AddressTooHigh(std::int32_t address);
/// What /SS shows.
std::string Status(std::string_view windowsVersion, std::int16_t portAddress);

// The menus.
inline constexpr std::string_view AskContinuousConversion =
    "This function requires that the VX3260,\r\n"
    "be placed in Continuous Conversion Mode,\r\n"
    "\r\n"
    "Do you wish to Place the VX3260\r\n"
    "in Continuous Conversion Mode ?";
inline constexpr std::string_view AskQuit = "Are you sure you want to quit";
inline constexpr std::string_view FilterNeedsPowerDown =
    "The VX3260 must be in Power-Down Mode in order to program the Filter Register";
inline constexpr std::string_view NoSystemInformation =
    "System Information Is Unavailable At This Time";

// The register forms.
inline constexpr std::string_view CalibrationNeedsPowerDown =
    "The VX3260 must be placed in Power-Down Mode to program the Calibration Registers";
inline constexpr std::string_view CoefficientNotVerified =
    "An Error has occurred , The Register may not be programmed correctly";
inline constexpr std::string_view ErrorReading = "Error Reading from VX3260";
inline constexpr std::string_view FilterWordTooLarge = "The maximum Filter Word is  FF Hex";
/// The limits are in fact whole hertz, 5 to 105; intentional.
inline constexpr std::string_view UpdateRateRange = "Enter a value Between 5.35 Hz and 105.3 Hz";

// Readings.
inline constexpr std::string_view ReadingTimedOut = "Error Reading Data from VX3260";
inline constexpr std::string_view ReadingStopped = "User Interruption of Reading";
/// The refusal for a converter that is not enabled: "Enable Main ADC before reading Data".
std::string ConverterDisabled(Converter converter);
/// The detail of a time-out: what to check, or the port's FailureDetail where there is one.
std::string TimeoutDetail(const ParallelPort& port);

/// For a block whose count does not fit an analysis, 10 to 5000. It names 9 as allowed although 9
/// is refused; intentional.
inline constexpr std::string_view CountRefusal =
    "For Data Analysis the number of Codes read must be between 9 and 5000";

/// The two spellings of the one message are intentional; each register form states which it uses.
inline constexpr std::string_view ErrorProgramming = "Error Programming VX3260";
inline constexpr std::string_view ErrorProgrammingSmallP = "Error programming VX3260";

/// The detail of either: what was written and read back, in hexadecimal and for each field that
/// differs, and the port's FailureDetail where there is one.
std::string MismatchDetail(const ParallelPort& port,
                           const RegisterMap::RegisterDescription& description,
                           std::int32_t written, std::int32_t readBack);

inline constexpr std::string_view ErrorCalibrating = "Error Calibrating VX3260";
/// The detail of a calibration whose end was not seen: what to check.
std::string CalibrationTimeoutDetail(const ParallelPort& port);

/// What the user has to connect before a calibration of this mode, 4 to 7; nothing for the internal
/// ones.
std::optional<Message> CalibrationPrompt(std::int32_t mode);

}  // namespace vx3260::MessageTexts
