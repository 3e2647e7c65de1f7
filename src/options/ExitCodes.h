// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <stdexcept>
#include <string_view>

namespace vx3260 {

/// The exit codes of the process, by which scripts distinguish the cases.
enum class ExitCode : int {
    Success = 0,
    UnexpectedError = 1,
    WrongCommandLine = 2,
    BadDataFile = 3,
    NoAnswer = 4,
    ConverterDisabled = 5,
    CountRefused = 6,
    FileNotAccessible = 7,
    ReadBackMismatch = 8,
    NotInPowerDown = 9,
    Different = 10,
    Interrupted = 130,   ///< what shells give a process that SIGINT ended
    OutputClosed = 141,  ///< what shells give a process that SIGPIPE ended
};

struct ExitCodeText {
    ExitCode code;
    std::string_view text;
};

inline constexpr std::array ExitCodeTexts{
    ExitCodeText{ExitCode::Success, "success"},
    ExitCodeText{ExitCode::UnexpectedError, "unexpected error"},
    ExitCodeText{ExitCode::WrongCommandLine, "wrong command line"},
    ExitCodeText{
        ExitCode::BadDataFile,
        "a file is not a data file or script, its codes are suspicious or cannot be analysed"},
    ExitCodeText{ExitCode::NoAnswer, "no printer port, or no answer from the board"},
    ExitCodeText{ExitCode::ConverterDisabled, "the converter is disabled"},
    ExitCodeText{ExitCode::CountRefused, "too few or too many codes for an analysis"},
    ExitCodeText{ExitCode::FileNotAccessible,
                 "a file cannot be read or written, or exists and --force is missing"},
    ExitCodeText{ExitCode::ReadBackMismatch, "a register did not read back as it was written"},
    ExitCodeText{ExitCode::NotInPowerDown, "the register can be written in power-down mode only"},
    ExitCodeText{ExitCode::Different, "something differs"},
    ExitCodeText{ExitCode::Interrupted, "interrupted; what was read by then is kept"},
    ExitCodeText{ExitCode::OutputClosed, "nobody reads standard output any more"},
};

/// Ends a command; the message goes to stderr.
class CommandError : public std::runtime_error {
  public:
    CommandError(ExitCode code, const std::string& message)
        : std::runtime_error(message), code_(code) {}

    ExitCode Code() const { return code_; }

  private:
    ExitCode code_;
};

}  // namespace vx3260
