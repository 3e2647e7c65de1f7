// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "analysis/CodeWindow.h"
#include "analysis/ConversionConditions.h"

/// Texts that keep their length from code to code, for figures that change while they are read.
namespace vx3260 {

/// The voltage of a code with as many decimals as one code needs, and `moreDecimals`.
std::string SteadyVoltsText(const ConversionConditions& conditions, double code,
                            int moreDecimals = 0);

struct WindowTexts {
    std::string count;
    std::string mean;  ///< code
    std::string meanVolts;
    std::string sigma;  ///< LSB
    std::string sigmaVolts;
    std::string peakToPeak;  ///< LSB
    std::string peakToPeakVolts;
};

WindowTexts TextsOf(const WindowFigures& figures, const ConversionConditions& conditions);

}  // namespace vx3260
