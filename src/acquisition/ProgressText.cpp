// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ProgressText.h"

#include <cmath>

#include "numbers/NumberText.h"

namespace vx3260 {

std::string ProgressText(std::int64_t done, std::int64_t total,
                         std::chrono::duration<double> elapsed, std::optional<double> rate) {
    std::string text = std::to_string(done) + " of " + std::to_string(total);
    if (done > 0 && elapsed >= std::chrono::seconds(1)) {
        rate = static_cast<double>(done) / elapsed.count();
    }
    if (!rate || done >= total) {
        return text;
    }
    const double left = std::ceil(static_cast<double>(total - done) / *rate);
    return text + ", " + DurationText(std::chrono::seconds(std::llround(left))) + " left";
}

}  // namespace vx3260
