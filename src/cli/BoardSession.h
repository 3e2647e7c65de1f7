#pragma once

#include <ostream>

#include "app/ApplicationState.h"
#include "app/Services.h"
#include "cli/ConsoleMessages.h"
#include "ports/OpenPort.h"

namespace vx3260 {

/// Where a command writes: results to `out`, messages and progress to `err`.
struct CliStreams {
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false;
};

/// What the program hands to every command.
struct CommandContext {
    const PortChoice& portChoice;
    OperatingSystem& system;
    CliStreams& streams;
};

/// The board, for as long as a command works with it.
class BoardSession {
  public:
    /// Opens the port and starts up; what start-up has to tell goes to `err`, and so does the badge
    /// of a board that is not a real one.
    explicit BoardSession(const CommandContext& context);
    ~BoardSession() = default;
    BoardSession(const BoardSession&) = delete;
    BoardSession(BoardSession&&) = delete;
    BoardSession& operator=(const BoardSession&) = delete;
    BoardSession& operator=(BoardSession&&) = delete;

    vx3260::Services& Services() { return services_; }

    /// Throws CommandError where start-up found no printer port to reach a board through.
    void RequirePort() const;

  private:
    OpenedPort opened_;
    ApplicationState state_;
    ConsoleMessages messages_;
    vx3260::Services services_;
};

}  // namespace vx3260
