// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/BoardSession.h"

#include <filesystem>
#include <system_error>

#include "app/MessageTexts.h"
#include "app/PortWords.h"
#include "app/StartUp.h"
#include "numbers/FilePath.h"
#include "options/ExitCodes.h"

namespace vx3260 {
namespace {

/// Trace and results in one file would make both unusable. Windows has no name for standard output.
void RefuseTraceAsStandardOutput(const std::string& trace) {
    std::error_code error;
    if (std::filesystem::is_regular_file(FilePath(trace), error) &&
        SameFile(trace, "/dev/stdout")) {
        throw CommandError(ExitCode::WrongCommandLine,
                           "--trace names the file that standard output goes to: " + trace);
    }
}

}  // namespace

void BoardSession::Open() {
    if (services_) {
        return;
    }
    RefuseTraceAsStandardOutput(portChoice_.traceFile);
    opened_ = openPort_(portChoice_, state_.PortAddress);
    services_.emplace(vx3260::Services{*opened_.port, messages_, system_, state_,
                                       opened_.boardLabel, opened_.faults});
    if (!opened_.boardLabel.empty()) {
        err_ << opened_.boardLabel << std::endl;
    }
    StartUp(*services_, statusRequested_);
    failureAtStart_ = services_->port.FailureDetail();
}

Services& BoardSession::Services() {
    Open();
    if (state_.PortAddress == 0) {
        throw CommandError(ExitCode::NoAnswer, "no printer port to reach a board through; " +
                                                   std::string(MessageTexts::SimulatedHint));
    }
    if (state_.PortClaimFailed) {
        throw CommandError(ExitCode::NoAnswer,
                           InPortWords("{the claimed} could not be claimed; ", services_->port) +
                               std::string(MessageTexts::SimulatedHint));
    }
    return *services_;
}

std::string BoardSession::NewFailure() const {
    const std::string failure = services_ ? services_->port.FailureDetail() : "";
    return failure == failureAtStart_ ? "" : failure;
}

}  // namespace vx3260
