// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Spectrum.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <numbers>
#include <numeric>
#include <unsupported/Eigen/FFT>

#include "numbers/RuntimeError.h"

namespace vx3260 {
namespace {

std::vector<double> PeriodicHann(std::size_t length) {
    std::vector<double> window(length);
    for (std::size_t i = 0; i < length; ++i) {
        const double turn = static_cast<double>(i) / static_cast<double>(length);
        window[i] = 0.5 - 0.5 * std::cos(2 * std::numbers::pi * turn);
    }
    return window;
}

/// What is subtracted at reading i is mean + slope x (i - middle).
struct TrendLine {
    double mean;
    double slope;
    double middle;
};

TrendLine TrendOf(std::span<const double> codes, Trend trend) {
    const auto count = static_cast<double>(codes.size());
    const double mean = std::accumulate(codes.begin(), codes.end(), 0.0) / count;
    const double middle = (count - 1) / 2;
    if (trend == Trend::Mean) {
        return {mean, 0, middle};
    }
    double product = 0;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        product += (static_cast<double>(i) - middle) * (codes[i] - mean);
    }
    const double squares = count * (count * count - 1) / 12;
    return {mean, product / squares, middle};
}

/// Sums the squared magnitudes of windowed segments. The plan of the transforms and their memory
/// serve all segments.
class SegmentSum {
  public:
    SegmentSum(std::size_t length, Trend trend)
        : trend_(trend),
          window_(PeriodicHann(length)),
          segment_(length),
          transformed_(length / 2 + 1),
          sum_(length / 2 + 1) {
        transform_.SetFlag(Transform::HalfSpectrum);
    }

    void Add(std::span<const double> codes) {
        const TrendLine line = TrendOf(codes, trend_);
        for (std::size_t i = 0; i < codes.size(); ++i) {
            // The mean first: beside it the digits of the line would be lost.
            const double code = codes[i] - line.mean;
            segment_[i] = (code - line.slope * (static_cast<double>(i) - line.middle)) * window_[i];
        }
        transform_.fwd(transformed_.data(), segment_.data(),
                       static_cast<Eigen::Index>(segment_.size()));
        for (std::size_t k = 0; k < sum_.size(); ++k) {
            sum_[k] += std::norm(transformed_[k]);
        }
    }

    const std::vector<double>& Sum() const { return sum_; }

    /// Sum of the squared window.
    double WindowPower() const {
        return std::inner_product(window_.begin(), window_.end(), window_.begin(), 0.0);
    }

  private:
    using Transform = Eigen::FFT<double>;

    Trend trend_;
    std::vector<double> window_;
    std::vector<double> segment_;
    std::vector<std::complex<double>> transformed_;
    std::vector<double> sum_;
    Transform transform_;
};

/// Whether the frequency stands for itself alone: the others have a negative twin.
bool IsAlone(std::size_t frequency, std::size_t segmentLength) {
    return frequency == 0 || 2 * frequency == segmentLength;
}

}  // namespace

std::size_t DefaultSegmentLength(std::size_t readings) {
    // 8 segments of length L, half overlapped, take 4.5 L.
    const std::size_t fitting = std::max(readings * 2 / 9, MinDefaultSegment);
    return std::min(readings, std::bit_floor(fitting));
}

Spectrum ComputeSpectrum(std::span<const double> codes, double rate, std::size_t segmentLength,
                         Trend trend) {
    if (segmentLength == 0 || segmentLength > codes.size()) {
        throw SubscriptError();
    }
    const std::size_t step = segmentLength - segmentLength / 2;
    Spectrum spectrum{rate, segmentLength, (codes.size() - segmentLength) / step + 1, {}, {}};
    if (segmentLength == 1) {
        return spectrum;
    }
    SegmentSum power(segmentLength, trend);
    for (std::size_t i = 0; i < spectrum.segments; ++i) {
        power.Add(codes.subspan(i * step, segmentLength));
    }
    const double scale = 1 / (rate * power.WindowPower() * static_cast<double>(spectrum.segments));
    for (std::size_t k = 0; k < power.Sum().size(); ++k) {
        const double sides = IsAlone(k, segmentLength) ? 1 : 2;
        spectrum.frequencies.push_back(static_cast<double>(k) * spectrum.Resolution());
        spectrum.density.push_back(std::sqrt(sides * scale * power.Sum()[k]));
    }
    return spectrum;
}

double IntegratedNoise(const Spectrum& spectrum, double from, double to) {
    const auto& [low, high] = std::minmax(from, to);
    double sum = 0;
    for (std::size_t k = 0; k < spectrum.density.size(); ++k) {
        if (spectrum.frequencies[k] >= low && spectrum.frequencies[k] <= high) {
            sum += spectrum.density[k] * spectrum.density[k];
        }
    }
    return std::sqrt(sum * spectrum.Resolution());
}

std::size_t NearestFrequency(const Spectrum& spectrum, double frequency) {
    const double number = std::round(frequency / spectrum.Resolution());
    const auto last = static_cast<double>(spectrum.frequencies.size() - 1);
    return static_cast<std::size_t>(std::clamp(number, 0.0, last));
}

std::array<MainsLine, 2> MainsLinesAt(double rate) {
    const auto lineOf = [rate](double mains) {
        return MainsLine{mains, std::abs(mains - std::round(mains / rate) * rate)};
    };
    return {lineOf(50), lineOf(60)};
}

}  // namespace vx3260
