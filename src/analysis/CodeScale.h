// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/ConversionConditions.h"

namespace vx3260 {

/// The size of a code in other units, for noise figures in codes.
struct CodeScale {
    double volts;
    double lsb;
};

inline CodeScale CodeScaleOf(const ConversionConditions& conditions) {
    return {conditions.lsbVolts, 1.0 / conditions.codeStep};
}

}  // namespace vx3260
