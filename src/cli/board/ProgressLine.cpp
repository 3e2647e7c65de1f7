// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/board/ProgressLine.h"

namespace vx3260 {
namespace {

std::string Bar(int done, int total) {
    constexpr int width = 30;
    const auto filled = static_cast<std::size_t>(width * done / total);
    std::string bar = "[";
    bar.append(filled, '#').append(width - filled, '.').append("] ");
    return bar + std::to_string(done) + " of " + std::to_string(total);
}

}  // namespace

ProgressLine::~ProgressLine() {
    if (width_ > 0) {
        terminal_ << '\r' << std::string(width_, ' ') << '\r' << std::flush;
    }
}

void ProgressLine::Show(int done) {
    constexpr std::chrono::milliseconds interval{100};
    const auto now = std::chrono::steady_clock::now();
    if (!visible_ || now < nextDrawing_) {
        return;
    }
    nextDrawing_ = now + interval;
    const std::string line = Bar(done, total_);
    width_ = line.size();
    terminal_ << '\r' << line << std::flush;
}

}  // namespace vx3260
