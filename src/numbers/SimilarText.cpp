// SPDX-License-Identifier: GPL-3.0-or-later
#include "numbers/SimilarText.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace vx3260 {
namespace {

/// How many letters have to be inserted, removed, replaced or exchanged with their neighbour.
std::size_t Distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> beforeLast(to.size() + 1);
    std::vector<std::size_t> last(to.size() + 1);
    std::iota(last.begin(), last.end(), 0);
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::vector<std::size_t> row(to.size() + 1, i);
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
        beforeLast = std::exchange(last, std::move(row));
    }
    return last.back();
}

}  // namespace

std::string ClosestOf(std::string_view word, const std::vector<std::string>& names) {
    std::size_t distance = std::max<std::size_t>(1, word.size() / 3);
    std::string closest;
    for (const std::string& name : names) {
        const std::size_t here = name.starts_with(word) ? 1 : Distance(word, name);
        if (here < distance || (here == distance && closest.empty())) {
            distance = here;
            closest = name;
        }
    }
    return closest;
}

std::string Suggestion(std::string_view word, const std::vector<std::string>& names) {
    const std::string closest = ClosestOf(word, names);
    return closest.empty() ? "" : "; did you mean " + closest + "?";
}

}  // namespace vx3260
