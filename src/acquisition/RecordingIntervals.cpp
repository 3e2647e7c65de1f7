// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/RecordingIntervals.h"

#include <algorithm>
#include <cmath>

namespace vx3260 {

void IntervalFigures::Add(std::int32_t code) {
    min_ = count_ == 0 ? code : std::min(min_, code);
    max_ = count_ == 0 ? code : std::max(max_, code);
    ++count_;
    const double difference = code - mean_;
    mean_ += difference / static_cast<double>(count_);
    squares_ += difference * (code - mean_);
}

double IntervalFigures::Sigma() const {
    return count_ < 2 ? 0 : std::sqrt(squares_ / static_cast<double>(count_ - 1));
}

void RecordingIntervals::Add(const RecordingMoment& moment, std::span<const RecordedCode> codes) {
    Advance(moment.elapsed);
    if (converters_.empty()) {
        period_ = PeriodOf(moment.elapsed);
        const double begin = std::max(begin_, period_ * seconds_);
        const std::chrono::duration<double> since(moment.elapsed - begin);
        start_ = {moment.utc - std::chrono::round<std::chrono::milliseconds>(since), begin};
        for (const RecordedCode& code : codes) {
            converters_.push_back({code.converter, {}});
        }
    }
    for (std::size_t i = 0; i < codes.size(); ++i) {
        converters_[i].figures.Add(codes[i].code);
    }
}

double RecordingIntervals::PeriodOf(double elapsed) const {
    return std::floor(elapsed / seconds_);
}

void RecordingIntervals::Advance(double elapsed) {
    if (PeriodOf(elapsed) > period_) {
        Finish();
    }
}

void RecordingIntervals::Finish() {
    for (const ConverterFigures& each : converters_) {
        sink_(start_, each.converter, each.figures);
    }
    converters_.clear();
}

}  // namespace vx3260
