// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/UnitTexts.h"

#include "numbers/Conversions.h"
#include "numbers/NumberText.h"

namespace vx3260 {
namespace {

constexpr int significantDigits = 4;

}  // namespace

std::string RoundedText(double value) {
    return SignificantText(value, significantDigits);
}

std::string HertzText(double hertz) {
    return RoundedText(hertz) + " Hz";
}

std::string SecondsText(double seconds) {
    return RoundedText(seconds) + " s";
}

std::string LsbText(double lsb) {
    return RoundedText(lsb) + " LSB";
}

std::string RmsText(double volts) {
    return VoltsText(volts, significantDigits);
}

std::string VoltsPerRootHertzText(double density) {
    return RmsText(density) + "/√Hz";
}

std::string TickText(double value) {
    constexpr int digits = 6;
    return ShortestText(TextToDouble(SignificantText(value, digits)));
}

std::string VoltsTickText(double volts) {
    const VoltsUnit unit = VoltsUnitOf(volts);
    return TickText(volts / unit.volts) + " " + std::string(unit.name);
}

}  // namespace vx3260
