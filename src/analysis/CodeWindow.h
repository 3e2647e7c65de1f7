// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <iterator>
#include <optional>

namespace vx3260 {

/// A code and when it was read.
struct TimedCode {
    std::chrono::nanoseconds time;  ///< by the board's clock
    std::int32_t code;
    bool first;  ///< of its reading: between it and the code before, nothing was read
};

/// Codes in the order they were read; valid until the next one is added.
class TimedCodes {
  public:
    using Place = std::deque<TimedCode>::const_iterator;

    TimedCodes(const Place& first, const Place& end) : first_(first), end_(end) {}

    Place begin() const { return first_; }
    Place end() const { return end_; }
    std::size_t size() const { return static_cast<std::size_t>(end_ - first_); }

    /// There is one.
    const TimedCode& back() const { return *std::prev(end_); }

  private:
    Place first_;
    Place end_;
};

/// Figures of the codes in a window.
struct WindowFigures {
    std::size_t count;
    double mean;   ///< codes
    double sigma;  ///< standard deviation, codes; divisor N - 1, and 0 for a single code
    std::int32_t minCode;
    std::int32_t maxCode;
};

/// The codes of the last seconds before the newest one, both ends included, and their figures. All
/// codes of the longest window are kept, so a longer one can be chosen at any time; the memory is
/// limited. The sums are whole numbers: no rounding error accumulates, however long codes come
/// and go.
class CodeWindow {
  public:
    using Duration = std::chrono::nanoseconds;

    static constexpr Duration MaxSpan = std::chrono::minutes(10);

    /// The oldest code is dropped for one more: 10 minutes at 105 codes a second are 63000.
    static constexpr std::size_t MaxCodes = 65536;

    /// Up to MaxSpan.
    explicit CodeWindow(Duration span) : span_(span) {}

    void SetSpan(Duration span);
    Duration Span() const { return span_; }

    /// The next code is the first one of a reading.
    void StartReading() { first_ = true; }

    /// A code of up to 24 bits, read no earlier than the one before.
    void Add(Duration time, std::int32_t code);

    void Clear();

    /// The codes of the window, the oldest first.
    TimedCodes Codes() const {
        return {kept_.begin() + static_cast<std::ptrdiff_t>(begin_), kept_.end()};
    }

    /// Empty without a code.
    std::optional<WindowFigures> Figures() const;

  private:
    /// The extreme of a window whose ends only move on. Of its codes are kept those that no later
    /// one exceeds, so the first of them is the extreme.
    template <typename Exceeds>
    class Extreme {
      public:
        void Add(std::int32_t code) {
            while (!candidates_.empty() && Exceeds{}(code, candidates_.back())) {
                candidates_.pop_back();
            }
            candidates_.push_back(code);
        }
        void Remove(std::int32_t code) {
            if (candidates_.front() == code) {
                candidates_.pop_front();
            }
        }
        void Clear() { candidates_.clear(); }
        std::int32_t Code() const { return candidates_.front(); }

      private:
        std::deque<std::int32_t> candidates_;
    };

    void AddToFigures(std::int32_t code);
    void RemoveFromFigures(std::int32_t code);
    void DropOldCodes();

    Duration span_;
    std::deque<TimedCode> kept_;
    std::size_t begin_ = 0;  ///< of the window, in kept_
    bool first_ = true;
    Extreme<std::less<>> min_;
    Extreme<std::greater<>> max_;
    std::int64_t sum_ = 0;
    std::uint64_t squares_ = 0;  ///< sum of the codes' squares modulo 2^64; see Figures
};

}  // namespace vx3260
