// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "link/RegisterMap.h"

namespace vx3260 {

/// The chip's two converters. The table below lists what differs between them.
enum class Converter { Main, Aux };

struct ConverterTraits {
    std::string_view name;  ///< as in the forms' texts: "Main", "Aux"
    std::string_view word;  ///< in files and on the command line: "main", "aux"
    RegisterMap::RegisterAccess data;
    RegisterMap::RegisterAccess control;
    RegisterMap::RegisterAccess zeroScale;  ///< calibration register
    RegisterMap::RegisterAccess fullScale;  ///< calibration register
    std::int16_t errorMask;                 ///< status register: the last result was out of range
};

inline constexpr ConverterTraits MainTraits{
    .name = "Main",
    .word = "main",
    .data = RegisterMap::MainData,
    .control = RegisterMap::MainControl,
    .zeroScale = RegisterMap::MainZeroScale,
    .fullScale = RegisterMap::MainFullScale,
    .errorMask = 0x08,
};
inline constexpr ConverterTraits AuxTraits{
    .name = "Aux",
    .word = "aux",
    .data = RegisterMap::AuxData,
    .control = RegisterMap::AuxControl,
    .zeroScale = RegisterMap::AuxZeroScale,
    .fullScale = RegisterMap::AuxFullScale,
    .errorMask = 0x04,
};

constexpr const ConverterTraits& TraitsOf(Converter converter) {
    return converter == Converter::Main ? MainTraits : AuxTraits;
}

/// The converter that a word means; nothing for any other text.
constexpr std::optional<Converter> ConverterNamed(std::string_view word) {
    for (const Converter converter : {Converter::Main, Converter::Aux}) {
        if (TraitsOf(converter).word == word) {
            return converter;
        }
    }
    return std::nullopt;
}

/// The largest code of a converter: 0xFFFFFF or 0xFFFF.
constexpr std::int32_t LargestCodeOf(Converter converter) {
    return (std::int32_t{1} << TraitsOf(converter).data.wordLength) - 1;
}

/// Whether a converter's input range is on one side of zero or on both; the number is how many
/// times the range's magnitude the codes cover.
enum class Polarity : std::int16_t { Unset = 0, Unipolar = 1, Bipolar = 2 };

constexpr Converter OtherConverter(Converter converter) {
    return converter == Converter::Main ? Converter::Aux : Converter::Main;
}

}  // namespace vx3260
