// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace vx3260 {

/// What is subtracted from each segment before it is transformed.
enum class Trend {
    Mean,
    Linear  ///< the straight line of least squares
};

/// One-sided amplitude spectral density of a block. There are none of frequency and density for a
/// block or a segment of a single code, of which no spectrum is defined.
struct Spectrum {
    double rate;                      ///< readings per second, Hz
    std::size_t segmentLength;        ///< readings
    std::size_t segments;             ///< how many were averaged
    std::vector<double> frequencies;  ///< Hz, from 0 to half the rate
    std::vector<double> density;      ///< codes/sqrt(Hz)

    /// Distance of the frequencies, Hz.
    double Resolution() const { return rate / static_cast<double>(segmentLength); }
};

/// The shortest segment that DefaultSegmentLength gives for a block that has that many codes.
inline constexpr std::size_t MinDefaultSegment = 8;

/// The largest power of two that gives 8 or more half-overlapped segments, but not below
/// MinDefaultSegment; the whole block where that is shorter. 8 segments average the density to
/// about a quarter of its value.
std::size_t DefaultSegmentLength(std::size_t readings);

/// The density by Welch's method: periodic Hann windows over segments of `segmentLength` codes,
/// each beginning segmentLength - segmentLength / 2 after the one before; readings after the last
/// complete segment are not used. The mean of the squared magnitudes is scaled by 1 / (rate x sum
/// of the squared window), doubled but at 0 and at half the rate; the density is its root. See P.
/// D. Welch, IEEE Trans. Audio Electroacoustics AU-15 (1967) 70.
///
/// `rate` is positive. Lengths with small prime factors are fast. Throws SubscriptError for an
/// empty block and for a segment length of 0 or above the number of codes.
Spectrum ComputeSpectrum(std::span<const double> codes, double rate, std::size_t segmentLength,
                         Trend trend);

/// RMS noise, in codes, of the frequencies from `from` to `to` (Hz), in either order: each stands
/// for a band as wide as the resolution. From 0 to half the rate it is the block's RMS as the
/// windows see it, without the trend (Parseval's theorem).
double IntegratedNoise(const Spectrum& spectrum, double from, double to);

/// The frequency nearest to `frequency`, by its number. The spectrum has one.
std::size_t NearestFrequency(const Spectrum& spectrum, double frequency);

/// Where pick-up from the mains appears in a spectrum.
struct MainsLine {
    double mains;      ///< Hz
    double frequency;  ///< Hz: what it aliases to, from 0 to half the rate
};

/// Of 50 Hz and of 60 Hz.
std::array<MainsLine, 2> MainsLinesAt(double rate);

}  // namespace vx3260
