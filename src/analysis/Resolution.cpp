// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Resolution.h"

#include <cmath>

#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr int digitsShown = 6;
constexpr int bitsDecimals = 2;

ResolutionBits BitsAbove(double noise, int bits) {
    if (noise == 0) {
        return {static_cast<double>(bits), true};
    }
    return {bits - std::log2(noise), false};
}

std::string BitsText(const ResolutionBits& resolution) {
    const int decimals = resolution.isLowerBound ? 0 : bitsDecimals;
    return (resolution.isLowerBound ? "≥ " : "") + FixedText(resolution.bits, decimals) + " bits";
}

ResolutionText CodesText(double codes, double lsbVolts) {
    return {SignificantText(codes, digitsShown) + " LSB", VoltsText(codes * lsbVolts, digitsShown)};
}

}  // namespace

Resolution ComputeResolution(std::size_t readings, double sigma, double span, int bits) {
    return {
        .readings = readings,
        .rmsNoise = sigma,
        .standardError = sigma / std::sqrt(static_cast<double>(readings)),
        .peakToPeak = PeakToPeakSigmas * sigma,
        .effective = BitsAbove(sigma, bits),
        .noiseFree = BitsAbove(span, bits),
    };
}

ResolutionTexts TextsOf(const Resolution& resolution, double lsbVolts) {
    return {
        ResolutionText{std::to_string(resolution.readings), ""},
        CodesText(resolution.rmsNoise, lsbVolts),
        CodesText(resolution.standardError, lsbVolts),
        CodesText(resolution.peakToPeak, lsbVolts),
        ResolutionText{BitsText(resolution.effective), ""},
        ResolutionText{BitsText(resolution.noiseFree), ""},
    };
}

}  // namespace vx3260
