// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ProgressText.h"

#include <cmath>

#include "numbers/NumberText.h"

namespace vx3260 {

std::string ProgressText(std::int64_t done, std::int64_t total,
                         std::chrono::duration<double> elapsed) {
    std::string text = std::to_string(done) + " of " + std::to_string(total);
    if (done <= 0 || done >= total || elapsed < std::chrono::seconds(1)) {
        return text;
    }
    const double left =
        elapsed.count() * static_cast<double>(total - done) / static_cast<double>(done);
    return text + ", " + DurationText(std::chrono::seconds(std::llround(std::ceil(left)))) +
           " left";
}

}  // namespace vx3260
