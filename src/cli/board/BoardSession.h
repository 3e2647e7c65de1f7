// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <utility>

#include "app/ApplicationState.h"
#include "app/Services.h"
#include "cli/board/ConsoleMessages.h"
#include "ports/OpenPort.h"

namespace vx3260 {

/// Where a command writes: results to `out`, messages and progress to `err`.
struct CliStreams {
    std::ostream& out;
    std::ostream& err;
    bool inIsTerminal = false;          ///< whether somebody types what is read from standard input
    std::size_t outWidth = 80;          ///< characters in a line of the terminal that shows `out`
    std::size_t errWidth = 0;           ///< the same of `err`; 0 where no terminal shows it
    bool (*readerHasGone)() = nullptr;  ///< whether nobody reads `out` any more; may be null
};

/// The board of a run. The first command that needs it opens the port, for all that follow.
class BoardSession {
  public:
    /// References outlive the session. Nothing is opened yet. With `statusRequested` start-up shows
    /// the system and the port's address.
    BoardSession(const PortChoice& portChoice, bool statusRequested, OperatingSystem& system,
                 std::ostream& err, PortOpener openPort)
        : portChoice_(portChoice),
          statusRequested_(statusRequested),
          system_(system),
          err_(err),
          openPort_(std::move(openPort)),
          messages_(err) {}
    ~BoardSession() = default;
    BoardSession(const BoardSession&) = delete;
    BoardSession(BoardSession&&) = delete;
    BoardSession& operator=(const BoardSession&) = delete;
    BoardSession& operator=(BoardSession&&) = delete;

    /// Opens the port and starts up, unless that has been done. Messages of start-up go to
    /// `err`, and so does the label of a simulated board.
    void Open();

    /// Which port the user asked for.
    const PortChoice& Choice() const { return portChoice_; }

    bool StatusRequested() const { return statusRequested_; }

    /// The board, opened. Throws CommandError where start-up found no printer port to reach one
    /// through.
    vx3260::Services& Services();

    /// How the port has failed since start-up; empty if it has not.
    std::string NewFailure() const;

  private:
    const PortChoice& portChoice_;
    bool statusRequested_;
    OperatingSystem& system_;
    std::ostream& err_;
    PortOpener openPort_;
    ConsoleMessages messages_;
    ApplicationState state_;
    OpenedPort opened_;
    std::optional<vx3260::Services> services_;
    std::string failureAtStart_;
};

/// What the program hands to every command.
struct CommandContext {
    BoardSession& board;
    OperatingSystem& system;
    CliStreams& streams;
};

}  // namespace vx3260
