// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <ostream>
#include <string>

namespace vx3260 {

/// A progress bar with the ProgressText in one line of a terminal. The destructor clears it.
class ProgressLine {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// `width` is the number of characters in a line of the terminal; with 0 nothing is ever drawn.
    ProgressLine(std::ostream& terminal, int total, std::size_t width,
                 Clock clock = std::chrono::steady_clock::now);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine(ProgressLine&&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ProgressLine& operator=(ProgressLine&&) = delete;

    /// Draws the line, at most ten times a second.
    void Show(int done);

    /// The same with a bar for `part` of the work, 0 to 1, and a text of its own.
    void Show(double part, const std::function<std::string()>& text);

    /// The same for work without a known end: the text alone, made where it is drawn.
    void Show(const std::function<std::string()>& text);

    /// Clears the line, for a text in its place; the next Show draws it again.
    void Clear();

  private:
    bool IsDue();
    std::size_t Room() const;
    void Draw(const std::string& line);

    std::ostream& terminal_;
    int total_;
    std::size_t width_;
    Clock clock_;
    std::chrono::steady_clock::time_point start_;
    std::chrono::steady_clock::time_point nextDrawing_;
    std::size_t drawn_ = 0;  ///< characters that stand in the line now
};

}  // namespace vx3260
