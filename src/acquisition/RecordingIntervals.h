// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "acquisition/Recording.h"

namespace vx3260 {

/// The codes of one converter in an interval, by Welford's method.
class IntervalFigures {
  public:
    void Add(std::int32_t code);

    std::int64_t Count() const { return count_; }
    double Mean() const { return mean_; }
    double Sigma() const;  ///< with the divisor N - 1; 0 for one code
    std::int32_t Min() const { return min_; }
    std::int32_t Max() const { return max_; }

  private:
    std::int64_t count_ = 0;
    double mean_ = 0;
    double squares_ = 0;
    std::int32_t min_ = 0;
    std::int32_t max_ = 0;
};

/// Sums conversions up into intervals of equal length, which begin at multiples of it.
class RecordingIntervals {
  public:
    /// Gets the start of an interval with codes, and for each converter its figures.
    using Sink =
        std::function<void(const RecordingMoment&, Converter converter, const IntervalFigures&)>;

    /// `seconds` is more than 0.
    RecordingIntervals(double seconds, Sink sink) : seconds_(seconds), sink_(std::move(sink)) {}

    void Add(const RecordingMoment& moment, std::span<const RecordedCode> codes);

    /// Passes on what there is of the present interval.
    void Finish();

  private:
    void Advance(double elapsed);

    struct ConverterFigures {
        Converter converter;
        IntervalFigures figures;
    };

    double seconds_;
    Sink sink_;
    RecordingMoment start_{};
    std::vector<ConverterFigures> converters_;  ///< empty where the interval has no codes
};

}  // namespace vx3260
