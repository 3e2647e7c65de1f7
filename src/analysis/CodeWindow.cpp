// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/CodeWindow.h"

#include <cmath>

namespace vx3260 {
namespace {

std::uint64_t Square(std::int64_t value) {
    const auto factor = static_cast<std::uint64_t>(value);
    return factor * factor;
}

/// The quotient to the nearest whole number; `count` above 0.
std::int64_t RoundedQuotient(std::int64_t sum, std::int64_t count) {
    const std::int64_t half = sum < 0 ? -(count / 2) : count / 2;
    return (sum + half) / count;
}

}  // namespace

void CodeWindow::SetSpan(Duration span) {
    span_ = span;
    min_.Clear();
    max_.Clear();
    sum_ = 0;
    squares_ = 0;
    begin_ = 0;
    for (const TimedCode& kept : kept_) {
        AddToFigures(kept.code);
    }
    DropOldCodes();
}

void CodeWindow::Add(Duration time, std::int32_t code) {
    kept_.push_back({time, code, first_});
    first_ = false;
    AddToFigures(code);
    DropOldCodes();
}

void CodeWindow::Clear() {
    kept_.clear();
    SetSpan(span_);
}

/// From the window those beyond its span; from the memory those that no window shows.
void CodeWindow::DropOldCodes() {
    if (kept_.empty()) {
        return;
    }
    const Duration newest = kept_.back().time;
    const std::size_t surplus = kept_.size() > MaxCodes ? kept_.size() - MaxCodes : 0;
    while (kept_[begin_].time < newest - span_ || begin_ < surplus) {
        RemoveFromFigures(kept_[begin_].code);
        ++begin_;
    }
    while (kept_.front().time < newest - MaxSpan || kept_.size() > MaxCodes) {
        kept_.pop_front();
        --begin_;
    }
}

void CodeWindow::AddToFigures(std::int32_t code) {
    min_.Add(code);
    max_.Add(code);
    sum_ += code;
    squares_ += Square(code);
}

void CodeWindow::RemoveFromFigures(std::int32_t code) {
    min_.Remove(code);
    max_.Remove(code);
    sum_ -= code;
    squares_ -= Square(code);
}

/// The squared deviations are summed from the whole number next to the mean. That sum is below 2^62
/// for 65536 codes of 24 bits, so modulo 2^64 it is exact, whatever the sums it is made of exceed.
std::optional<WindowFigures> CodeWindow::Figures() const {
    const std::size_t count = kept_.size() - begin_;
    if (count == 0) {
        return std::nullopt;
    }
    const auto number = static_cast<std::int64_t>(count);
    const std::int64_t centre = RoundedQuotient(sum_, number);
    const std::int64_t remainder = sum_ - number * centre;
    const std::uint64_t squares =
        squares_ - 2 * static_cast<std::uint64_t>(centre) * static_cast<std::uint64_t>(sum_) +
        static_cast<std::uint64_t>(number) * Square(centre);
    const auto size = static_cast<double>(count);
    const double rest = static_cast<double>(remainder) / size;
    const double deviations = static_cast<double>(squares) - static_cast<double>(remainder) * rest;
    return WindowFigures{.count = count,
                         .mean = static_cast<double>(centre) + rest,
                         .sigma = count == 1 ? 0 : std::sqrt(deviations / (size - 1)),
                         .minCode = min_.Code(),
                         .maxCode = max_.Code()};
}

}  // namespace vx3260
