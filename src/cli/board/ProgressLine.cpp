// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/ProgressLine.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "acquisition/ProgressText.h"

namespace vx3260 {
namespace {

/// What a terminal shows behind the line when Ctrl+C is pressed.
constexpr std::string_view echo = "^C";

/// Empty where there is no room for one.
std::string Bar(double part, std::size_t room) {
    constexpr std::size_t minWidth = 8;
    constexpr std::size_t maxWidth = 33;
    const std::size_t width = std::min(room, maxWidth);
    if (width < minWidth) {
        return "";
    }
    const std::size_t cells = width - std::string_view("[] ").size();
    const auto filled =
        static_cast<std::size_t>(std::clamp(part, 0.0, 1.0) * static_cast<double>(cells));
    return "[" + std::string(filled, '#') + std::string(cells - filled, '.') + "] ";
}

}  // namespace

ProgressLine::ProgressLine(std::ostream& terminal, int total, std::size_t width, Clock clock)
    : terminal_(terminal),
      total_(total),
      width_(width),
      clock_(std::move(clock)),
      start_(clock_()),
      nextDrawing_(start_) {}

ProgressLine::~ProgressLine() {
    Clear();
}

void ProgressLine::Clear() {
    if (drawn_ > 0) {
        terminal_ << '\r' << std::string(drawn_ + echo.size(), ' ') << '\r' << std::flush;
    }
    drawn_ = 0;
}

bool ProgressLine::IsDue() {
    constexpr std::chrono::milliseconds interval{100};
    const auto now = clock_();
    if (width_ == 0 || now < nextDrawing_) {
        return false;
    }
    nextDrawing_ = now + interval;
    return true;
}

/// The cursor behind the last column would begin a new line.
std::size_t ProgressLine::Room() const {
    return width_ - std::min(width_, echo.size() + 1);
}

void ProgressLine::Draw(const std::string& line) {
    const std::size_t rest = drawn_ - std::min(drawn_, line.size());
    drawn_ = line.size();
    terminal_ << '\r' << line << std::string(rest, ' ') << std::flush;
}

void ProgressLine::Show(int done) {
    if (!IsDue()) {
        return;
    }
    const std::string text = ProgressText(done, total_, clock_() - start_).substr(0, Room());
    Draw(Bar(static_cast<double>(done) / total_, Room() - text.size()) + text);
}

void ProgressLine::Show(double part, const std::function<std::string()>& text) {
    if (IsDue()) {
        const std::string shown = text().substr(0, Room());
        Draw(Bar(part, Room() - shown.size()) + shown);
    }
}

void ProgressLine::Show(const std::function<std::string()>& text) {
    if (IsDue()) {
        Draw(text().substr(0, Room()));
    }
}

}  // namespace vx3260
