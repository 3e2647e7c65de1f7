// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

#include "link/BlockConditions.h"
#include "link/Converter.h"

namespace vx3260 {

inline constexpr double NanovoltsPerVolt = 1e9;

/// The conditions under which codes are read, which turn them into volts.
struct ConversionConditions {
    Converter converter;
    float referenceVoltage;  ///< volts
    float inputRange;        ///< volts: the main ADC's nominal range, the aux ADC's full scale
    Polarity polarity;
    double lsbVolts;  ///< size of one code of the data register
    double zeroCode;  ///< code of zero volts: mid-scale when bipolar, else 0
    int codeBits;     ///< width of a result: 24 or 16
    int codeStep;     ///< distance of results, in codes: 256 at 16 of 24 bits, else 1

    /// The largest result.
    std::int32_t LargestResult() const {
        return static_cast<std::int32_t>((std::int64_t{codeStep} << codeBits) - codeStep);
    }

    /// One LSB, the distance of results, in volts.
    double StepVolts() const { return codeStep * lsbVolts; }

    /// The input voltage that a code stands for. It may be the mean of several codes.
    double VoltsOf(double code) const { return (code - zeroCode) * lsbVolts; }

    /// The code that an input voltage is converted to, before rounding.
    double CodeOf(double volts) const { return volts / lsbVolts + zeroCode; }
};

/// Conditions of the main ADC at its word length of 24 bits. One code is
/// reference x 1.024 / 2^(7 - rangeCode) x (1 unipolar, 2 bipolar) / 2^24 volts, this system's own
/// definition. `rangeCode` is 0 to 7.
ConversionConditions MainConditions(float referenceVoltage, int rangeCode, Polarity polarity);

/// What the aux ADC uses as full scale.
enum class AuxFullScale { HalfReference, Reference };

/// Conditions of the aux ADC. One code is full scale x (1 unipolar, 2 bipolar) / 2^16 volts.
ConversionConditions AuxConditions(float referenceVoltage, AuxFullScale fullScale,
                                   Polarity polarity);

/// Conditions of a converter from the value of its control register.
ConversionConditions ConditionsOf(Converter converter, float referenceVoltage,
                                  std::int32_t control);

/// The conditions that a block was read under; empty where control register or reference voltage
/// are unknown.
std::optional<ConversionConditions> ConditionsOf(const BlockConditions& block);

}  // namespace vx3260
