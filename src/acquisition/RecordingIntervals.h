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

/// Sums conversions up into intervals of equal length, which begin at multiples of it; the first
/// one where the conversions begin.
class RecordingIntervals {
  public:
    /// Gets the start of an interval with codes, and for each converter its figures.
    using Sink =
        std::function<void(const RecordingMoment&, Converter converter, const IntervalFigures&)>;

    /// `seconds` is more than 0; `begin` are the elapsed seconds before which there is no
    /// conversion.
    RecordingIntervals(double seconds, double begin, Sink sink)
        : seconds_(seconds), begin_(begin), sink_(std::move(sink)) {}

    void Add(const RecordingMoment& moment, std::span<const RecordedCode> codes);

    /// Passes on the interval that has ended by this time. No earlier conversion is added later.
    void Advance(double elapsed);

    /// Passes on what there is of the present interval.
    void Finish();

  private:
    struct ConverterFigures {
        Converter converter;
        IntervalFigures figures;
    };

    double PeriodOf(double elapsed) const;

    double seconds_;
    double begin_;
    Sink sink_;
    RecordingMoment start_{};
    double period_ = 0;                         ///< number of the present interval
    std::vector<ConverterFigures> converters_;  ///< empty where the interval has no codes
};

}  // namespace vx3260
