// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <ostream>
#include <string>

namespace vx3260 {

/// A progress bar with a count in one line of a terminal. The destructor clears it.
class ProgressLine {
  public:
    /// Without `visible` nothing is ever drawn.
    ProgressLine(std::ostream& terminal, int total, bool visible)
        : terminal_(terminal), total_(total), visible_(visible) {}
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine(ProgressLine&&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ProgressLine& operator=(ProgressLine&&) = delete;

    /// Draws the line, at most ten times a second.
    void Show(int done);

  private:
    std::ostream& terminal_;
    int total_;
    bool visible_;
    std::chrono::steady_clock::time_point nextDrawing_{};
    std::size_t width_ = 0;  ///< of what stands in the line now
};

}  // namespace vx3260
