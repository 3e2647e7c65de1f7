// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace vx3260::monkey {

/// Random choices, the same ones for a seed with every compiler.
class Chance {
  public:
    explicit Chance(std::uint64_t seed) : engine_(seed) {}

    /// 0 to count - 1.
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    int Between(int first, int last) {
        const int count = last - first + 1;
        return first + static_cast<int>(Below(static_cast<std::size_t>(count)));
    }
    bool Percent(unsigned percent) { return Below(100) < percent; }

    /// An element of a list that is not empty.
    template <typename List>
    decltype(auto) In(List&& list) {
        const auto count = static_cast<std::size_t>(std::size(list));
        return list[static_cast<decltype(std::size(list))>(Below(count))];
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace vx3260::monkey
