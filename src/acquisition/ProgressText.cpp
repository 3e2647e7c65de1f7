// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ProgressText.h"

#include <cmath>

#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

std::string LeftText(double seconds) {
    return DurationText(std::chrono::seconds(std::llround(std::ceil(seconds)))) + " left";
}

}  // namespace

std::string ProgressText(std::int64_t done, std::int64_t total,
                         std::chrono::duration<double> elapsed, std::optional<double> rate) {
    std::string text = std::to_string(done) + " of " + std::to_string(total);
    if (done > 0 && elapsed >= std::chrono::seconds(1)) {
        rate = static_cast<double>(done) / elapsed.count();
    }
    if (!rate || done >= total) {
        return text;
    }
    return text + ", " + LeftText(static_cast<double>(total - done) / *rate);
}

std::string TimeLeftText(double part, std::chrono::duration<double> elapsed) {
    if (part <= 0 || part >= 1 || elapsed < std::chrono::seconds(1)) {
        return {};
    }
    return LeftText(elapsed.count() * (1 - part) / part);
}

}  // namespace vx3260
