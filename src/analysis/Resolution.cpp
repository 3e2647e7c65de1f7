// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/Resolution.h"

#include <cmath>

namespace vx3260 {
namespace {

ResolutionBits BitsAbove(double noise, int bits) {
    if (noise == 0) {
        return {static_cast<double>(bits), true};
    }
    return {bits - std::log2(noise), false};
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

}  // namespace vx3260
