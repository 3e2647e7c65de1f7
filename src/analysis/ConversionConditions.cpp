// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/ConversionConditions.h"

#include <cmath>

#include "link/RegisterMap.h"

namespace vx3260 {
namespace {

constexpr double fullScaleOfReference = 1.024;
constexpr int largestRangeCode = 7;
constexpr int shortWordLength = 16;

/// `fullScale` is the input of the largest code, in volts.
double LsbVolts(double fullScale, Polarity polarity, int bits) {
    return std::ldexp(fullScale * static_cast<int>(polarity), -bits);
}

double ZeroCode(Polarity polarity, int bits) {
    return polarity == Polarity::Unipolar ? 0.0 : std::ldexp(1.0, bits - 1);
}

}  // namespace

ConversionConditions MainConditions(float referenceVoltage, int rangeCode, Polarity polarity) {
    const int bits = MainTraits.data.wordLength;
    const double gain = std::ldexp(1.0, largestRangeCode - rangeCode);
    return {
        .converter = Converter::Main,
        .referenceVoltage = referenceVoltage,
        .inputRange = RegisterMap::InputRanges.at(static_cast<std::size_t>(rangeCode)),
        .polarity = polarity,
        .lsbVolts = LsbVolts(referenceVoltage * fullScaleOfReference / gain, polarity, bits),
        .zeroCode = ZeroCode(polarity, bits),
        .codeBits = bits,
        .codeStep = 1,
    };
}

ConversionConditions AuxConditions(float referenceVoltage, AuxFullScale fullScale,
                                   Polarity polarity) {
    const int bits = AuxTraits.data.wordLength;
    const bool half = fullScale == AuxFullScale::HalfReference;
    const float volts = half ? referenceVoltage / 2 : referenceVoltage;
    return {
        .converter = Converter::Aux,
        .referenceVoltage = referenceVoltage,
        .inputRange = volts,
        .polarity = polarity,
        .lsbVolts = LsbVolts(volts, polarity, bits),
        .zeroCode = ZeroCode(polarity, bits),
        .codeBits = bits,
        .codeStep = 1,
    };
}

ConversionConditions ConditionsOf(Converter converter, float referenceVoltage,
                                  std::int32_t control) {
    const Polarity polarity =
        (control & RegisterMap::UnipolarMask) != 0 ? Polarity::Unipolar : Polarity::Bipolar;
    if (converter == Converter::Main) {
        const int range = control & RegisterMap::RangeMask;
        ConversionConditions conditions = MainConditions(referenceVoltage, range, polarity);
        if ((control & RegisterMap::WordLength16Mask) != 0) {
            conditions.codeBits = shortWordLength;
            conditions.codeStep = 1 << (MainTraits.data.wordLength - shortWordLength);
        }
        return conditions;
    }
    const bool full = (control & RegisterMap::FullReferenceMask) != 0;
    return AuxConditions(referenceVoltage,
                         full ? AuxFullScale::Reference : AuxFullScale::HalfReference, polarity);
}

std::optional<ConversionConditions> ConditionsOf(const BlockConditions& block) {
    const std::optional<std::int32_t> control = block.Control();
    return control && block.referenceVoltage
               ? std::optional(ConditionsOf(block.converter, *block.referenceVoltage, *control))
               : std::nullopt;
}

}  // namespace vx3260
