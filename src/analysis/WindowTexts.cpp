// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/WindowTexts.h"

#include <algorithm>
#include <cmath>

#include "analysis/CodeScale.h"
#include "analysis/UnitTexts.h"
#include "numbers/NumberText.h"

namespace vx3260 {

std::string SteadyVoltsText(const ConversionConditions& conditions, double code, int moreDecimals) {
    const int decimals = static_cast<int>(std::ceil(-std::log10(conditions.lsbVolts)));
    return FixedText(conditions.VoltsOf(code), std::max(0, decimals) + moreDecimals) + " V";
}

WindowTexts TextsOf(const WindowFigures& figures, const ConversionConditions& conditions) {
    const CodeScale scale = CodeScaleOf(conditions);
    const double distance = static_cast<double>(figures.maxCode) - figures.minCode;
    return {.count = CountText(static_cast<std::int64_t>(figures.count), "code"),
            .mean = FixedText(figures.mean, 1),
            .meanVolts = SteadyVoltsText(conditions, figures.mean, 1),
            .sigma = LsbText(figures.sigma * scale.lsb),
            .sigmaVolts = RmsText(figures.sigma * scale.volts),
            .peakToPeak = FixedText(distance * scale.lsb, 0) + " LSB",
            .peakToPeakVolts = RmsText(distance * scale.volts)};
}

}  // namespace vx3260
